#pragma once

#include "document/clsNode.h"
#include "platform/file_system.h"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

namespace tamarind::document {

/// Text that is not well-formed XML, or that asks for what is refused (an entity bomb, an unknown encoding).
class XmlError : public std::runtime_error {
public:
    XmlError(const std::string& description, std::uint64_t line, std::uint64_t column);
    /// From 1.
    [[nodiscard]] std::uint64_t Line() const { return line_; }
    /// From 1, in characters of the line.
    [[nodiscard]] std::uint64_t Column() const { return column_; }

private:
    std::uint64_t line_;
    std::uint64_t column_;
};

/// Reads an XML file into the node model: element names without prefix; attribute names with prefix, namespace
/// declarations among them, in the file's order; of an element's text the last unbroken run between two tags, with the
/// comments, CDATA sections and entities inside it; line ends as LF. Keys count from 1 in order of start tags.
/// Encodings: UTF-8, UTF-16, ISO-8859-1, windows-1252, US-ASCII. External entities are never fetched. Nesting is
/// bounded by memory alone.
/// Throws XmlError, or a file's RuntimeError.
/// `betweenPieces` is called again and again while a large file is read.
[[nodiscard]] Document LoadXml(const platform::Files& files, const std::string& path,
                               const std::function<void()>& betweenPieces = {});

/// The same from text in memory.
[[nodiscard]] Document ParseXml(std::string_view bytes);

} // namespace tamarind::document
