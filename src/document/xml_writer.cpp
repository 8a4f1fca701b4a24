#include "document/xml_writer.h"

#include "platform/safe_write.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <vector>

namespace tamarind::document {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 17;
constexpr std::size_t kDeepestLevel = 32767; // levels are counted in 16 bits

/// Gathers the output to large pieces and knows the column of the next character.
class Output {
public:
    explicit Output(const Sink& sink) : sink_(sink) { bytes_.reserve(kPiece * 2); }

    void MoveTo(std::size_t column) {
        if (column_ > column) {
            bytes_.append("\r\n");
            column_ = 1;
        }
        while (column_ < column) {
            const std::size_t some = std::min(column - column_, kPiece);
            bytes_.append(some, ' ');
            column_ += some;
            FlushWhenFull();
        }
        converted_ = bytes_.size();
    }

    /// Text in UTF-8, taken over when Convert() is called.
    Output& operator<<(std::string_view text) {
        bytes_.append(text);
        return *this;
    }
    Output& operator<<(char character) {
        bytes_.push_back(character);
        return *this;
    }
    /// The bytes of what was put in since the last call become the code page's.
    void Convert() {
        const std::string_view text = std::string_view(bytes_).substr(converted_);
        unsigned char high = 0;
        for (const char character : text) {
            high |= static_cast<unsigned char>(character);
        }
        if (high >= 0x80) { // all others are the same in both
            bytes_.replace(converted_, std::string::npos, text::ToCodePage(text));
        }
        const std::string_view bytes = std::string_view(bytes_).substr(converted_);
        const std::size_t lineEnd = bytes.rfind('\n');
        column_ = lineEnd == std::string_view::npos ? column_ + bytes.size() : bytes.size() - lineEnd;
        FlushWhenFull();
        converted_ = bytes_.size();
    }

    void Flush() {
        if (!bytes_.empty()) {
            sink_(bytes_);
            bytes_.clear();
        }
    }

private:
    void FlushWhenFull() {
        if (bytes_.size() >= kPiece) {
            Flush();
        }
    }

    const Sink& sink_;
    std::string bytes_;
    std::size_t converted_ = 0; ///< so many bytes of it
    std::size_t column_ = 1;
};

void PutStartTag(Output& output, const clsNode& node) {
    output << '<' << node.NodeName;
    for (const clsNodeAttribute& attribute : node.NodeAttributes) {
        output << ' ' << attribute.AttribName << "=\"" << attribute.AttribValue << '"';
    }
    output << '>' << node.NodeCharacters;
}

void PutEndTag(Output& output, const clsNode& node) {
    output << "</" << node.NodeName << ">\r\n";
    output.Convert();
}

void CheckDepth(const Document& document) {
    if (document.DeepestLevelEver() <= kDeepestLevel) {
        return;
    }
    Walk walk(document.Top()); // the deepest may be gone
    while (walk.Next() != nullptr) {
        if (walk.Level() > kDeepestLevel) {
            throw text::RuntimeError(text::ErrorNumber::Overflow);
        }
    }
}

} // namespace

void WriteXml(const Document& document, const Sink& sink) {
    const clsNode& top = document.Top();
    CheckDepth(document);
    Output output(sink);
    output << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n";
    output.Convert();
    std::vector<const clsNode*> open;
    const auto closeTo = [&](std::size_t level) {
        while (open.size() >= level) {
            output.MoveTo(open.size());
            PutEndTag(output, *open.back());
            open.pop_back();
        }
    };
    Walk walk(top);
    while (const clsNode* const node = walk.Next()) {
        closeTo(walk.Level());
        output.MoveTo(walk.Level());
        PutStartTag(output, *node);
        if (node->ChildNodes.Count() == 0) {
            PutEndTag(output, *node);
        } else {
            output.Convert();
            open.push_back(node);
        }
    }
    closeTo(1);
    output.Flush();
}

void WriteXmlFile(const Document& document, platform::Files& files, const std::string& path) {
    platform::WriteSafely(files, path, [&](platform::OutputFile& file) {
        WriteXml(document, [&](std::string_view bytes) { file.Write(bytes); });
    });
}

} // namespace tamarind::document
