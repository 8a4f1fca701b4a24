#include "windows/editor_window.h"
#include "windows/placement.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/listctrl.h>
#include <wx/stattext.h>

#include <ctime>

namespace tamarind::tests {
namespace {

using platform::FromWx;

constexpr const char* kHalts =
    "<kml><longitude>0</longitude>\n"
    "<Placemark><name>Old Mill</name><coordinates>-1.55,53.8,0</coordinates></Placemark>\n"
    "<Placemark><name>Quarry</name><coordinates>-1.45,53.9,0</coordinates></Placemark></kml>";

class Markers : public EditorWindow {
protected:
    void ChooseInput(const std::string& content) {
        input_ = folder_.Write("Maps\\halts.kml", content);
        dialogs_.ChooseFile(
            {.title = "Open Marker file", .filter = "Marker Files (*.kml;*.gpx;*.wpt;*.mkr)|*.kml;*.gpx;*.wpt;*.mkr"},
            input_);
    }
    void ChooseOutput() {
        output_ = folder_ / "Maps\\halts.csv";
        dialogs_.ChooseFile({.title = "Save Marker File", .filter = "RailSim Marker Files (*.csv)|*.csv", .save = true},
                            output_);
    }
    static wxListCtrl& Lines(wxDialog& dialog) { return dynamic_cast<wxListCtrl&>(*dialog.FindWindow("List1")); }
    static std::string Summary(wxDialog& dialog) {
        return FromWx(dynamic_cast<wxStaticText&>(*dialog.FindWindow("lblSummary")).GetLabelText());
    }
    /// What stands on the screen there.
    static wxImage Picture(wxWindow& window) {
        wxClientDC source(&window);
        wxBitmap bitmap(window.GetClientSize());
        wxMemoryDC target(bitmap);
        target.Blit(wxPoint(0, 0), window.GetClientSize(), &source, wxPoint(0, 0));
        target.SelectObject(wxNullBitmap);
        return bitmap.ConvertToImage();
    }
    static int PixelsLike(const wxImage& picture, int red, int green, int blue) {
        int count = 0;
        for (int y = 0; y < picture.GetHeight(); ++y) {
            for (int x = 0; x < picture.GetWidth(); ++x) {
                count +=
                    picture.GetRed(x, y) == red && picture.GetGreen(x, y) == green && picture.GetBlue(x, y) == blue;
            }
        }
        return count;
    }

    /// In the rows from the first to before the last.
    static int DarkPixels(const wxImage& picture, int first, int last) {
        int count = 0;
        for (int y = first; y < last; ++y) {
            for (int x = 0; x < picture.GetWidth(); ++x)
                count += picture.GetRed(x, y) < 0x80 ? 1 : 0;
        }
        return count;
    }

    std::string input_;
    std::string output_;
};

TEST_F(Markers, AreShownAsListAndPictureAndThenSaved) {
    Open();
    ChooseInput(kHalts);
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) {
        EXPECT_EQ(Summary(dialog), "2 markers");
        wxListCtrl& lines = Lines(dialog);
        ASSERT_EQ(lines.GetItemCount(), 2);
        const auto text = [&lines](int row, int column) { return FromWx(lines.GetItemText(row, column)); };
        EXPECT_EQ(text(0, 0), "1");
        EXPECT_EQ(text(0, 1), "-1.55");
        EXPECT_EQ(text(0, 2), "53.8");
        EXPECT_EQ(text(0, 3), "Old_Mill");
        EXPECT_EQ(text(1, 3), "Quarry");
        EXPECT_EQ(FromWx(wxControl::GetLabelText(dialog.FindWindow("cmdSave")->GetLabel())), "Save Marker File…");
        EXPECT_EQ(FromWx(wxControl::GetLabelText(dialog.FindWindow("cmdCancel")->GetLabel())), "Cancel");
        wxWindow& plot = *dialog.FindWindow("MarkerPlot");
        // The first marker's ring and the last one's square.
        EXPECT_TRUE(PumpUntil([&plot] {
            const wxImage picture = Picture(plot);
            return PixelsLike(picture, 0, 0x80, 0) > 5 && PixelsLike(picture, 0xBB, 0, 0) > 5;
        }));
        Press(*dialog.FindWindow("cmdSave"));
    });
    ChooseOutput();
    Choose("mnuMarker");
    EXPECT_TRUE(dialogs_.AllCame());
    EXPECT_EQ(ReadFile(output_), "-1.55,53.8,Old_Mill\r\n-1.45,53.9,Quarry\r\n");
}

TEST_F(Markers, AreNotSavedOnCancel) {
    Open();
    ChooseInput(kHalts);
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) { Press(*dialog.FindWindow("cmdCancel")); });
    Choose("mnuMarker");
    EXPECT_TRUE(dialogs_.AllCame());
    EXPECT_FALSE(Exists(folder_ / "Maps\\halts.csv"));
}

TEST_F(Markers, AreSavedWithoutThePictureOnceItIsSwitchedOff) {
    Open();
    ChooseInput(kHalts);
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) {
        dynamic_cast<wxCheckBox&>(*dialog.FindWindow("chkSkip")).SetValue(true);
        Press(*dialog.FindWindow("cmdSave"));
    });
    ChooseOutput();
    Choose("mnuMarker");
    ChooseInput(kHalts);
    ChooseOutput();
    Choose("mnuMarker");
    EXPECT_TRUE(dialogs_.AllCame());
}

TEST_F(Markers, OfAnEmptyFileSayThatThereAreNone) {
    Open();
    ChooseInput("");
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) {
        EXPECT_EQ(Summary(dialog), "0 markers");
        EXPECT_EQ(Lines(dialog).GetItemCount(), 0);
        Press(*dialog.FindWindow("cmdCancel"));
    });
    Choose("mnuMarker");
    EXPECT_TRUE(dialogs_.AllCame());
}

TEST_F(Markers, FitIntoTheirWindowAtItsSmallest) {
    Open();
    ChooseInput(kHalts);
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) {
        PumpFor(milliseconds(200));
        EXPECT_GE(ExpectWellPlaced(dialog), 6);
        dialog.SetSize(dialog.GetMinSize());
        PumpFor(milliseconds(300));
        ExpectWellPlaced(dialog);
        Press(*dialog.FindWindow("cmdCancel"));
    });
    Choose("mnuMarker");
}

TEST_F(Markers, HaveTheirOutermostDegreesBelowTheMapInAWindowAtItsSmallest) {
    Open();
    ChooseInput(kHalts);
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) {
        PumpFor(milliseconds(200));
        dialog.SetSize(dialog.GetMinSize());
        PumpFor(milliseconds(300));
        wxWindow& plot = *dialog.FindWindow("MarkerPlot");
        const wxImage picture = Picture(plot);
        const int height = picture.GetHeight();
        int foot = height; // of the map, by the colour of its ground
        while (foot > 0 &&
               PixelsLike(picture.GetSubImage(wxRect(0, foot - 1, picture.GetWidth(), 1)), 0xF4, 0xF6, 0xF2) == 0)
            --foot;
        ASSERT_GT(foot, height / 2);
        constexpr int kFrame = 3;
        EXPECT_GT(DarkPixels(picture, foot + kFrame, height), 60);
        // Letters that are cut off reach the edge.
        EXPECT_EQ(DarkPixels(picture, height - 2, height), 0);
        Press(*dialog.FindWindow("cmdCancel"));
    });
    Choose("mnuMarker");
    EXPECT_TRUE(dialogs_.AllCame());
}

TEST_F(Markers, InGreatNumberAreShownWithoutALongPause) {
    static constexpr int kCount = LONGEST_PAUSE_MS > 200 ? 20'000 : 100'000;
    std::string xml = "<longitude>";
    for (int i = 0; i < kCount; ++i) {
        const std::string number = std::to_string(i);
        // A cloud over some degrees, each marker at a place of its own.
        xml += "<Placemark><name>Marker " + number + "</name><coordinates>-" + std::to_string(i % 331) + "." + number +
               "e-2,5" + std::to_string(i % 7) + "." + number + ",0</coordinates></Placemark>";
    }
    Open();
    ChooseInput(xml);
    dialogs_.UseDialog("dlgMarkers", [](wxDialog& dialog) {
        EXPECT_EQ(Lines(dialog).GetItemCount(), kCount);
        wxWindow& plot = *dialog.FindWindow("MarkerPlot");
        PumpFor(milliseconds(300));
        bool isPainted = false;
        const auto note = [&isPainted](wxPaintEvent& event) {
            event.Skip();
            isPainted = true;
        };
        plot.Bind(wxEVT_PAINT, note);
        // Another size is another picture. Processor time, and the best of ten: a busy machine makes pauses of its own.
        long long longest = LONGEST_PAUSE_MS;
        for (int attempt = 0; attempt < 10 && longest >= LONGEST_PAUSE_MS; ++attempt) {
            isPainted = false;
            const std::clock_t before = std::clock();
            dialog.SetSize(dialog.GetSize() + wxSize(10, 10));
            EXPECT_TRUE(PumpUntil([&isPainted] { return isPainted; }));
            longest = 1000 * static_cast<long long>(std::clock() - before) / CLOCKS_PER_SEC;
        }
        EXPECT_LT(longest, LONGEST_PAUSE_MS);
        plot.Unbind(wxEVT_PAINT, note);
        Press(*dialog.FindWindow("cmdCancel"));
    });
    Choose("mnuMarker");
    EXPECT_TRUE(dialogs_.AllCame());
}

} // namespace
} // namespace tamarind::tests
