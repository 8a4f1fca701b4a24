#pragma once

#include "document/clsNode.h"
#include "platform/file_system.h"

#include <functional>
#include <string>
#include <string_view>

namespace tamarind::document {

/// Takes the next bytes of the file.
using Sink = std::function<void(std::string_view bytes)>;

/// Writes the document as text in Windows-1252:
///   the line `<?xml version="1.0" encoding="utf-8"?>` CR LF,
///   then each element as `<Name attribute="value" ...>text`, its children, `</Name>` CR LF.
/// Start tags, and end tags of elements with children, stand at the column of their level (the top element's is 1): a
/// line already past that column is ended with CR LF first, then blanks lead up to it. Columns count characters from 1
/// after each LF. Nothing is escaped.
/// Throws InvalidProcedureCall for a document without an element, Overflow when the nesting is deeper than 32,767
/// levels (before anything is written).
void WriteXml(const Document& document, const Sink& sink);

/// Writes the document over a file; the old content stays until the new one is whole on disk.
void WriteXmlFile(const Document& document, platform::Files& files, const std::string& path);

} // namespace tamarind::document
