// Writes XML of the shape that the game's converter makes: make_xml MEGABYTES > file. A megabyte holds 10,000 elements
// of about 100 bytes.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// Always the same sequence, so that every run compares the same file.
class Numbers {
public:
    std::uint32_t Next(std::uint32_t below) {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::uint32_t>(state_ >> 33) % below;
    }

private:
    std::uint64_t state_ = 1;
};

void Leaf(std::string& out, int depth, const char* name, const char* attributes, const std::string& text) {
    out.append(static_cast<std::size_t>(depth), '\t');
    out.append("<").append(name).append(attributes).append(">").append(text);
    out.append("</").append(name).append(">\r\n");
}

void Open(std::string& out, int depth, const char* name, const std::string& attributes) {
    out.append(static_cast<std::size_t>(depth), '\t').append("<").append(name).append(attributes).append(">\r\n");
}

void Close(std::string& out, int depth, const char* name) {
    out.append(static_cast<std::size_t>(depth), '\t').append("</").append(name).append(">\r\n");
}

std::string Fraction(Numbers& numbers) {
    return std::to_string(numbers.Next(2000)) + "." + std::to_string(numbers.Next(100000));
}

/// One record of 20 elements, about 2,000 bytes, down to the sixth level.
void AppendRecord(std::string& out, Numbers& numbers) {
    static constexpr std::array<const char*, 4> kNames = {"Oak Tree", "Signal Box", "Platform Edge", "Stone Wall 2m"};
    const char* const precise = " d:type=\"sFloat32\" d:exact=\"000000C0CCCC1C40\" d:precision=\"as text\"";
    const auto id = [&] { return " d:id=\"" + std::to_string(numbers.Next(900000000) + 100000000) + "\""; };
    Open(out, 1, "Record", "");
    Open(out, 2, "cSceneryItem", id());
    Leaf(out, 3, "Name", " d:type=\"cDeltaString\"", kNames[numbers.Next(4)]);
    Leaf(out, 3, "Description", " d:type=\"cDeltaString\"",
         "Stands beside the line, seen from the train on both sides; the crown is swayed by the wind of each passing "
         "train, the trunk casts a shadow, and in autumn the leaves take the colours of the season");
    Leaf(out, 3, "TakesPropertiesOfItsParent", " d:type=\"bool\"", "1");
    Open(out, 3, "Component", "");
    Open(out, 4, "cPlacement", id());
    Leaf(out, 5, "Scale", precise, Fraction(numbers));
    for (const char* const axis : {"X", "Y", "Z"}) {
        Leaf(out, 5, axis, precise, Fraction(numbers));
    }
    Close(out, 4, "cPlacement");
    Open(out, 4, "cOrientation", id());
    Open(out, 5, "RotationMatrix", "");
    for (int row = 0; row < 4; ++row) {
        Leaf(out, 6, "e",
             " d:numElements=\"4\" d:elementType=\"sFloat32\" d:precision=\"as text\" "
             "d:exact=\"000000C0CCCC1C40000000C0CCCC1C40000000C0CCCC1C400000000000000000\"",
             Fraction(numbers) + " " + Fraction(numbers) + " " + Fraction(numbers) + " 0.0000000");
    }
    Close(out, 5, "RotationMatrix");
    Close(out, 4, "cOrientation");
    Close(out, 3, "Component");
    Open(out, 3, "BlueprintID", "");
    Leaf(out, 4, "Provider", " d:type=\"cDeltaString\"", "Example Makers of Scenery, North");
    Leaf(out, 4, "Path", " d:type=\"cDeltaString\"",
         "Scenery\\Vegetation\\Trees\\oak_" + std::to_string(numbers.Next(90)) + ".xml");
    Close(out, 3, "BlueprintID");
    Close(out, 2, "cSceneryItem");
    Close(out, 1, "Record");
}

} // namespace

int main(int argc, char** argv) {
    const long megabytes = argc == 2 ? std::atol(argv[1]) : 0;
    if (megabytes < 1) {
        std::fputs("make_xml MEGABYTES > file\n", stderr);
        return 2;
    }
    Numbers numbers;
    std::string out = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<cRecordSet xmlns:d=\"http://example.org/delta\" "
                      "d:version=\"1.0\" d:id=\"1\">\r\n";
    for (long record = 0; record < megabytes * 500; ++record) {
        AppendRecord(out, numbers);
        if (out.size() > 1'000'000) {
            std::fwrite(out.data(), 1, out.size(), stdout);
            out.clear();
        }
    }
    out += "</cRecordSet>\r\n";
    std::fwrite(out.data(), 1, out.size(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}
