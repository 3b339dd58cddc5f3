// Internal: XML written from a pugixml tree piece by piece, byte for byte as pugixml's raw
// format writes it (Package::save), so that a part compiled for merging and a part saved
// whole agree: text escapes & < >, attribute values escape & < " and control characters as
// character references ("&#09;"), an element without children is written "<name/>".
#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace nvwm::docx {

void appendEscapedText(std::string& out, std::string_view text);
void appendEscapedAttribute(std::string& out, std::string_view value);
// ` name="value"`, the value escaped.
void appendAttribute(std::string& out, pugi::xml_attribute attribute);

// What a node writes before its children: an element's start tag ("<name/>" when selfClosing),
// a text node's escaped text, a CDATA section, a declaration...
void appendOpening(std::string& out, pugi::xml_node node, bool selfClosing);
// What it writes after them: "</name>" for an element written with children, else nothing.
void appendClosing(std::string& out, pugi::xml_node node, bool selfClosing);
// A node and everything under it.
void appendNode(std::string& out, pugi::xml_node node);

// Appends the runs that show text with the given run properties (serialized w:rPr, may be
// empty): line breaks become w:br, tabs w:tab, the text is escaped and other control
// characters, which XML text can't hold, are dropped. asInstruction writes w:instrText
// instead of w:t, for a value that stands inside another field's instruction.
void appendRuns(std::string& out, std::string_view runProperties, std::string_view text,
                bool asInstruction);

}  // namespace nvwm::docx
