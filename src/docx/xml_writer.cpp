#include "docx/xml_writer.h"

#include "docx/xml_tree.h"

namespace nvwm::docx {
namespace {

void appendCharacterReference(std::string& out, unsigned char c) {
  out += "&#";
  out += static_cast<char>('0' + c / 10);
  out += static_cast<char>('0' + c % 10);
  out += ';';
}

void appendCdata(std::string& out, std::string_view value) {
  // "]]>" can't stand in a section: it is cut between two.
  out += "<![CDATA[";
  for (size_t at; (at = value.find("]]>")) != std::string_view::npos;) {
    out.append(value.substr(0, at + 2));
    out += "]]><![CDATA[";
    value.remove_prefix(at + 2);
  }
  out.append(value);
  out += "]]>";
}

// Escapes what character data (inAttribute false) or an attribute value can't hold as it is.
// Text keeps tabs and line ends; an attribute value writes them as references, or a parser
// would read them as blanks.
void appendEscaped(std::string& out, std::string_view text, bool inAttribute) {
  size_t from = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    bool special = c == '&' || c == '<' || (inAttribute ? c == '"' : c == '>') ||
                   (c < 0x20 && (inAttribute || (c != '\t' && c != '\n' && c != '\r')));
    if (!special) continue;
    out.append(text.substr(from, i - from));
    from = i + 1;
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        appendCharacterReference(out, c);
    }
  }
  out.append(text.substr(from));
}

}  // namespace

void appendEscapedText(std::string& out, std::string_view text) { appendEscaped(out, text, false); }

void appendEscapedAttribute(std::string& out, std::string_view value) {
  appendEscaped(out, value, true);
}

void appendAttribute(std::string& out, pugi::xml_attribute attribute) {
  out += ' ';
  out += attribute.name();
  out += "=\"";
  appendEscapedAttribute(out, attribute.value());
  out += '"';
}

void appendOpening(std::string& out, pugi::xml_node node, bool selfClosing) {
  switch (node.type()) {
    case pugi::node_element:
      out += '<';
      out += node.name();
      for (pugi::xml_attribute a : node.attributes()) appendAttribute(out, a);
      out += selfClosing ? "/>" : ">";
      break;
    case pugi::node_pcdata:
      appendEscapedText(out, node.value());
      break;
    case pugi::node_cdata:
      appendCdata(out, node.value());
      break;
    case pugi::node_declaration:
      out += "<?";
      out += node.name();
      for (pugi::xml_attribute a : node.attributes()) appendAttribute(out, a);
      out += "?>";
      break;
    case pugi::node_pi:
      out += "<?";
      out += node.name();
      if (*node.value()) {
        out += ' ';
        out += node.value();
      }
      out += "?>";
      break;
    case pugi::node_comment:
      out += "<!--";
      out += node.value();
      out += "-->";
      break;
    case pugi::node_doctype:
      out += "<!DOCTYPE ";
      out += node.value();
      out += '>';
      break;
    default:
      break;
  }
}

void appendClosing(std::string& out, pugi::xml_node node, bool selfClosing) {
  if (node.type() != pugi::node_element || selfClosing) return;
  out += "</";
  out += node.name();
  out += '>';
}

void appendNode(std::string& out, pugi::xml_node node) {
  auto open = [&](pugi::xml_node n) {
    bool leaf = !n.first_child();
    appendOpening(out, n, leaf);
    return !leaf;
  };
  auto close = [&](pugi::xml_node n) { appendClosing(out, n, !n.first_child()); };
  if (node.type() == pugi::node_document) {
    traverse(node, open, close);
    return;
  }
  open(node);
  traverse(node, open, close);
  close(node);
}

void appendRuns(std::string& out, std::string_view runProperties, std::string_view text,
                bool asInstruction) {
  if (text.empty()) return;
  const char* open =
      asInstruction ? "<w:instrText xml:space=\"preserve\">" : "<w:t xml:space=\"preserve\">";
  const char* close = asInstruction ? "</w:instrText>" : "</w:t>";
  out += "<w:r>";
  out += runProperties;
  bool inText = false;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\r' || c == '\n' || c == '\v' || c == '\t') {
      if (inText) out += close, inText = false;
      if (c == '\t') {
        out += "<w:tab/>";
      } else {
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        out += "<w:br/>";
      }
      continue;
    }
    if (static_cast<unsigned char>(c) < 0x20) continue;
    if (!inText) out += open, inText = true;
    size_t end = i + 1;
    while (end < text.size() && static_cast<unsigned char>(text[end]) >= 0x20) ++end;
    appendEscapedText(out, text.substr(i, end - i));
    i = end - 1;
  }
  if (inText) out += close;
  out += "</w:r>";
}

}  // namespace nvwm::docx
