// The form-letter merge: the main document is compiled once (compile_template.h), then each
// record is rendered through it into a sink that keeps the merged package (render_merge.h).
// Each record costs one pass over the compiled operations of the body (and of any header,
// footer or note that has fields): the work and the output grow linearly with the records,
// and nothing already written is copied again.
#include "docx/mail_merge.h"

#include "docx/compile_template.h"
#include "docx/merge_sink.h"
#include "docx/output_file.h"
#include "docx/render_merge.h"
#include "docx/xml_tree.h"

namespace nvwm::docx {
namespace {

// Children of w:settings that come before w:mailMerge in the schema's sequence.
const char* const kBeforeMailMerge[] = {"w:writeProtection",
                                        "w:view",
                                        "w:zoom",
                                        "w:removePersonalInformation",
                                        "w:removeDateAndTime",
                                        "w:doNotDisplayPageBoundaries",
                                        "w:displayBackgroundShape",
                                        "w:printPostScriptOverText",
                                        "w:printFractionalCharacterWidth",
                                        "w:printFormsData",
                                        "w:embedTrueTypeFonts",
                                        "w:embedSystemFonts",
                                        "w:saveSubsetFonts",
                                        "w:saveFormsData",
                                        "w:mirrorMargins",
                                        "w:alignBordersAndEdges",
                                        "w:bordersDoNotSurroundHeader",
                                        "w:bordersDoNotSurroundFooter",
                                        "w:gutterAtTop",
                                        "w:hideSpellingErrors",
                                        "w:hideGrammaticalErrors",
                                        "w:activeWritingStyle",
                                        "w:proofState",
                                        "w:formsDesign",
                                        "w:attachedTemplate",
                                        "w:linkStyles",
                                        "w:stylePaneFormatFilter",
                                        "w:stylePaneSortMethod",
                                        "w:documentType"};

bool comesBeforeMailMerge(pugi::xml_node n) {
  for (const char* name : kBeforeMailMerge) {
    if (named(n, name)) return true;
  }
  return false;
}

// A document without settings (some producers write none) gets an empty settings part.
std::string addSettingsPart(Package& package) {
  std::string part = Package::resolveTarget(package.mainPart(), "settings.xml");
  package.setBytes(
      part,
      "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
      "<w:settings xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
      "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"/>");
  package.setContentTypeOverride(part, kTypeSettings);
  std::string relsName = Package::relsPartOf(package.mainPart());
  if (!package.has(relsName)) {
    package.setBytes(
        relsName,
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>");
  }
  pugi::xml_node rel = package.xml(relsName).document_element().append_child("Relationship");
  rel.append_attribute("Id").set_value("rIdSettings");
  rel.append_attribute("Type").set_value(std::string(kRelSettings).c_str());
  rel.append_attribute("Target").set_value("settings.xml");
  return part;
}

// The main document's headers and footers that became one part per copy are no longer
// referenced.
void removeHeaderTemplates(Package& out, const CompiledTemplate& compiled) {
  if (compiled.headers.empty()) return;
  pugi::xml_node rels = out.xml(Package::relsPartOf(compiled.mainPart)).document_element();
  for (const CompiledHeader& h : compiled.headers) {
    for (pugi::xml_node r = rels.first_child(); r; r = r.next_sibling()) {
      if (h.relId == r.attribute("Id").value()) {
        rels.remove_child(r);
        break;
      }
    }
    out.remove(h.part);
    out.remove(Package::relsPartOf(h.part));
    out.removeContentTypeOverride(h.part);
  }
}

}  // namespace

std::string settingsPart(Package& package) {
  for (const auto& rel : package.relationships(package.mainPart())) {
    if (rel.type == kRelSettings && !rel.external) {
      return Package::resolveTarget(package.mainPart(), rel.target);
    }
  }
  return {};
}

bool isMainDocument(Package& package) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) return false;
  return static_cast<bool>(package.xml(part).document_element().child("w:mailMerge"));
}

std::optional<MailMergeLink> readMailMergeLink(Package& package) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) return std::nullopt;
  pugi::xml_node mm = package.xml(part).document_element().child("w:mailMerge");
  if (!mm) return std::nullopt;
  std::string id = mm.child("w:dataSource").attribute("r:id").value();
  if (id.empty()) return std::nullopt;
  MailMergeLink link;
  for (const auto& rel : package.relationships(part)) {
    if (rel.id == id) link.sourcePath = rel.target;
  }
  if (link.sourcePath.rfind("file:///", 0) == 0) link.sourcePath.erase(0, 7);
  if (link.sourcePath.empty()) return std::nullopt;
  std::string query = mm.child("w:query").attribute("w:val").value();
  size_t from = query.find("FROM ");
  if (from != std::string::npos) {
    std::string name = query.substr(from + 5);
    while (!name.empty() && (name.back() == ' ' || name.back() == ';')) name.pop_back();
    if (name.size() >= 2 && name.front() == '`' && name.back() == '`')
      name = name.substr(1, name.size() - 2);
    if (std::string_view(mm.child("w:dataType").attribute("w:val").value()) != "textFile") {
      link.table = name;
    }
  }
  return link;
}

void writeMailMergeLink(Package& package, const MailMergeLink& link) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) part = addSettingsPart(package);
  pugi::xml_node settings = package.xml(part).document_element();
  if (!settings.attribute("xmlns:r")) {
    settings.append_attribute("xmlns:r").set_value(
        "http://schemas.openxmlformats.org/officeDocument/2006/relationships");
  }
  pugi::xml_node mm = settings.child("w:mailMerge");
  if (!mm) {
    pugi::xml_node after;
    for (pugi::xml_node c : settings.children()) {
      if (comesBeforeMailMerge(c)) after = c;
    }
    mm = after ? settings.insert_child_after("w:mailMerge", after)
               : settings.prepend_child("w:mailMerge");
  }
  // The children this link owns are rewritten; the others (doNotSuppressBlankLines,
  // destination...) keep their place after them.
  for (const char* name : {"w:mainDocumentType", "w:linkToQuery", "w:dataType", "w:connectString",
                           "w:query", "w:dataSource"}) {
    while (pugi::xml_node c = mm.child(name)) mm.remove_child(c);
  }
  std::string relsName = Package::relsPartOf(part);
  if (!package.has(relsName)) {
    package.setBytes(
        relsName,
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>");
  }
  pugi::xml_node rels = package.xml(relsName).document_element();
  for (pugi::xml_node r = rels.first_child(); r;) {
    pugi::xml_node next = r.next_sibling();
    if (std::string_view(r.attribute("Type").value()) == kRelMailMergeSource) rels.remove_child(r);
    r = next;
  }
  std::string id = "rIdMergeSource";
  pugi::xml_node rel = rels.append_child("Relationship");
  rel.append_attribute("Id").set_value(id.c_str());
  rel.append_attribute("Type").set_value(std::string(kRelMailMergeSource).c_str());
  rel.append_attribute("Target").set_value(("file://" + link.sourcePath).c_str());
  rel.append_attribute("TargetMode").set_value("External");

  bool csv = link.table.empty();
  pugi::xml_node first = mm.first_child();
  auto add = [&](const char* name) {
    return first ? mm.insert_child_before(name, first) : mm.append_child(name);
  };
  add("w:mainDocumentType").append_attribute("w:val").set_value("formLetters");
  add("w:linkToQuery");
  add("w:dataType").append_attribute("w:val").set_value(csv ? "textFile" : "native");
  add("w:connectString")
      .append_attribute("w:val")
      .set_value(
          (csv ? std::string() : "Provider=SQLite;Data Source=" + link.sourcePath + ";").c_str());
  add("w:query").append_attribute("w:val").set_value(
      ("SELECT * FROM " + (csv ? link.sourcePath : "`" + link.table + "`")).c_str());
  add("w:dataSource").append_attribute("r:id").set_value(id.c_str());
}

void removeMailMergeLink(Package& package) {
  std::string part = settingsPart(package);
  if (!part.empty() && package.has(part)) {
    pugi::xml_node settings = package.xml(part).document_element();
    while (pugi::xml_node mm = settings.child("w:mailMerge")) settings.remove_child(mm);
  }
  // Relationships to the data source and to recipient data, wherever they hang.
  for (const std::string& source : {part, package.mainPart()}) {
    if (source.empty()) continue;
    std::string relsName = Package::relsPartOf(source);
    if (!package.has(relsName)) continue;
    pugi::xml_node rels = package.xml(relsName).document_element();
    for (pugi::xml_node r = rels.first_child(); r;) {
      pugi::xml_node next = r.next_sibling();
      std::string_view type = r.attribute("Type").value();
      if (type == kRelMailMergeSource || type == kRelRecipientData ||
          type.find("/mailMergeHeaderSource") != std::string_view::npos) {
        if (type == kRelRecipientData) {
          std::string target = Package::resolveTarget(source, r.attribute("Target").value());
          package.remove(target);
          package.remove(Package::relsPartOf(target));
          package.removeContentTypeOverride(target);
        }
        rels.remove_child(r);
      }
      r = next;
    }
  }
}

bool suppressesBlankLines(Package& package) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) return true;
  pugi::xml_node keep = package.xml(part).document_element().find_node(
      [](pugi::xml_node n) { return named(n, "w:doNotSuppressBlankLines"); });
  if (!keep) return true;
  std::string_view val = keep.attribute("w:val").value();
  return val == "0" || val == "false" || val == "off";
}

std::unique_ptr<Package> mergeDocument(Package& main, const MergeData& data, size_t* copiesMade) {
  CompiledTemplate compiled = compileTemplate(main, suppressesBlankLines(main));
  std::unique_ptr<Package> out = main.clone();
  removeMailMergeLink(*out);
  PackageSink sink(*out);
  size_t copies = renderMerge(compiled, data, sink);
  sink.finish();
  if (copies > 0) removeHeaderTemplates(*out, compiled);
  if (copiesMade) *copiesMade = copies;
  return out;
}

size_t mergeDocumentToFile(Package& main, const MergeData& data, const std::string& path) {
  CompiledTemplate compiled = compileTemplate(main, suppressesBlankLines(main));
  std::unique_ptr<Package> out = main.clone();
  removeMailMergeLink(*out);
  OutputFile file(path);
  ZipWriter zip(file.fd());
  ZipSink sink(*out, zip);
  size_t copies = renderMerge(compiled, data, sink);
  // The templates go before the sink writes the package's parts and relationships.
  if (copies > 0) removeHeaderTemplates(*out, compiled);
  sink.finish();
  zip.finish();
  file.commit();
  return copies;
}

}  // namespace nvwm::docx
