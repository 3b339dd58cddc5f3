// The rows of a merge: each record's copy is rendered whole into buffers of its own (body,
// headers, notes), then handed to the sink. A copy's section break is written before the next
// copy, with the previous copy's references, so that nothing handed over is ever looked at
// again.
#include "docx/render_merge.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "docx/conditional_fields.h"
#include "docx/xml_writer.h"
#include "runtime/text.h"

namespace nvwm::docx {
namespace {

// A variable's name as the copy's table keys it: upper case.
std::string variableKey(std::string_view name) { return UCase(name); }

// A numeric id moved on by `copy` strides; any other id as it is.
std::string shifted(std::string_view id, size_t copy, long stride) {
  long value = 0;
  auto [end, error] = std::from_chars(id.data(), id.data() + id.size(), value);
  if (id.empty() || error != std::errc() || end != id.data() + id.size()) return std::string(id);
  return std::to_string(value + static_cast<long>(copy) * stride);
}

std::string copyRelationshipId(size_t copy, size_t header) {
  return "rIdMerge" + std::to_string(copy + 1) + "h" + std::to_string(header + 1);
}

// The references of one copy.
class CopyReferences : public ReferenceResolver {
 public:
  CopyReferences(const CompiledTemplate& compiled,
                 const std::unordered_map<std::string, size_t>& headerOfRelationship, size_t copy)
      : compiled_(compiled), headerOfRelationship_(headerOfRelationship), copy_(copy) {}

  void append(std::string& out, RefKind kind, std::string_view original) const override {
    switch (kind) {
      case RefKind::kRelationship: {
        auto it = headerOfRelationship_.find(std::string(original));
        if (it != headerOfRelationship_.end()) {
          out += copyRelationshipId(copy_, it->second);
          return;
        }
        break;
      }
      case RefKind::kFootnote:
      case RefKind::kEndnote:
      case RefKind::kComment:
        if (const CompiledNotes* notes = compiled_.notesOf(kind)) {
          appendEscapedAttribute(out, notes->idFor(original, copy_));
          return;
        }
        break;
      case RefKind::kDrawing:
        appendEscapedAttribute(out, shifted(original, copy_, compiled_.body.drawingStride));
        return;
      case RefKind::kBookmark:
        appendEscapedAttribute(out, shifted(original, copy_, compiled_.body.bookmarkStride));
        return;
      case RefKind::kBookmarkName:
        appendEscapedAttribute(out, copyBookmarkName(original, copy_));
        return;
      case RefKind::kParagraphId:
        appendEscapedAttribute(out, compiled_.paragraphIdFor(original, copy_));
        return;
    }
    appendEscapedAttribute(out, original);
  }

 private:
  const CompiledTemplate& compiled_;
  const std::unordered_map<std::string, size_t>& headerOfRelationship_;
  size_t copy_;
};

// One merge: the template bound to the data, the copies written so far.
class MergeRun {
 public:
  MergeRun(const CompiledTemplate& compiled, const MergeData& data, MergeSink& sink)
      : compiled_(compiled),
        data_(data),
        sink_(sink),
        cursor_(data),
        body_(compiled.body.content, data),
        section_(compiled.body.section, data) {
    for (const CompiledHeader& h : compiled.headers) {
      headerOfRelationship_.emplace(h.relId, h.ordinal);
      headers_.emplace_back(h.program, data);
    }
    for (const CompiledNotes& n : compiled.notes) notes_.emplace_back(n.notes, data);
    headerXml_.resize(headers_.size());
    notesXml_.resize(notes_.size());
    size_t slash = compiled.mainPart.rfind('/');
    folder_ = slash == std::string::npos ? "" : compiled.mainPart.substr(0, slash + 1);
  }

  size_t run() {
    sink_.append(compiled_.mainPart, compiled_.body.prefix);
    while (!cursor_.atEnd()) {
      RenderState state{cursor_, cursor_.index(), merged_, {}};
      if (renderCopy(state)) {
        commitCopy();
        merged_ += std::min(state.cursor.index(), data_.rowCount() - 1) - state.copyFirstRecord + 1;
      }
      // The next copy begins after the last record this one took.
      cursor_ = state.cursor;
      cursor_.advance();
    }
    if (copies_ == 0) {
      writeWithoutRecords();
    } else {
      std::string last;
      renderSection(copies_ - 1, last);
      sink_.append(compiled_.mainPart, last);
    }
    sink_.append(compiled_.mainPart, compiled_.body.suffix);
    if (copies_ > 0) {
      for (const CompiledNotes& n : compiled_.notes) sink_.append(n.part, n.tail);
    }
    return copies_;
  }

 private:
  // The copy that begins with the record under the cursor, into the copy's buffers. Headers,
  // footers and notes show the copy's first record, whatever the body's NEXT fields do.
  // Returns false when a SKIPIF dropped it.
  bool renderCopy(RenderState& state) {
    CopyReferences references(compiled_, headerOfRelationship_, copies_);
    for (size_t k = 0; k < headers_.size(); ++k) {
      headerXml_[k].clear();
      RenderState own = state;
      headers_[k].render(own, references, headerXml_[k]);
    }
    for (size_t k = 0; k < notes_.size(); ++k) {
      notesXml_[k].clear();
      RenderState own = state;
      notes_[k].render(own, references, notesXml_[k]);
    }
    bodyXml_.clear();
    return body_.render(state, references, bodyXml_) == RenderEnd::kDone;
  }

  // The section properties that end a copy.
  void renderSection(size_t copy, std::string& out) {
    RenderState state{cursor_, cursor_.index(), merged_, {}};
    section_.render(state, CopyReferences(compiled_, headerOfRelationship_, copy), out);
  }

  // Hands the copy over: the previous copy's section break, the body, the parts of its own.
  void commitCopy() {
    const std::string& mainPart = compiled_.mainPart;
    if (copies_ > 0) {
      std::string separator = "<w:p><w:pPr>";
      renderSection(copies_ - 1, separator);
      separator += "</w:pPr></w:p>";
      sink_.append(mainPart, separator);
    }
    sink_.append(mainPart, bodyXml_);
    for (size_t k = 0; k < headers_.size(); ++k) {
      const CompiledHeader& h = compiled_.headers[k];
      std::string name = newPartName(h.relType == kRelHeader ? "header" : "footer");
      sink_.put(folder_ + name, std::move(headerXml_[k]), h.contentType);
      if (h.ownRels) sink_.put(Package::relsPartOf(folder_ + name), *h.ownRels, {});
      sink_.relate({copyRelationshipId(copies_, h.ordinal), h.relType, name, false});
    }
    for (size_t k = 0; k < notes_.size(); ++k) {
      const CompiledNotes& n = compiled_.notes[k];
      if (copies_ == 0) sink_.append(n.part, n.head);
      sink_.append(n.part, notesXml_[k]);
    }
    sink_.endCopy();
    ++copies_;
  }

  // No record: one empty paragraph; the headers keep their place, their fields empty, as in
  // the body; the notes stay as they are.
  void writeWithoutRecords() {
    KeepReferences keep;
    RenderState state{cursor_, cursor_.index(), merged_, {}};
    std::string xml = "<w:p/>";
    section_.render(state, keep, xml);
    sink_.append(compiled_.mainPart, xml);
    for (size_t k = 0; k < headers_.size(); ++k) {
      std::string header;
      RenderState own = state;
      headers_[k].render(own, keep, header);
      sink_.put(compiled_.headers[k].part, std::move(header), {});
    }
  }

  // A part name in the main document's folder that the template doesn't use ("header3.xml").
  std::string newPartName(const char* stem) {
    std::string name;
    do {
      name = stem + std::to_string(++partCounter_) + ".xml";
    } while (compiled_.partNames.count(folder_ + name) > 0);
    return name;
  }

  const CompiledTemplate& compiled_;
  const MergeData& data_;
  MergeSink& sink_;
  RecordCursor cursor_;
  BoundProgram body_;
  BoundProgram section_;
  std::vector<BoundProgram> headers_;
  std::vector<BoundProgram> notes_;
  std::unordered_map<std::string, size_t> headerOfRelationship_;  // id -> ordinal
  std::string folder_;  // of the main document part, "word/"
  std::string bodyXml_;
  std::vector<std::string> headerXml_;
  std::vector<std::string> notesXml_;
  size_t copies_ = 0;
  size_t merged_ = 0;  // records merged into the copies handed over
  size_t partCounter_ = 0;
};

}  // namespace

std::string copyBookmarkName(std::string_view name, size_t copy) {
  if (copy == 0 || name.empty()) return std::string(name);
  std::string suffix = "_" + std::to_string(copy + 1);
  // Word reads no more than 40 characters of a name; the suffix must stay.
  constexpr size_t kLongest = 40;
  std::string_view stem = name.substr(0, kLongest > suffix.size() ? kLongest - suffix.size() : 0);
  // Never cut a character in two: the first byte left out must begin one.
  while (!stem.empty() && stem.size() < name.size() &&
         (static_cast<unsigned char>(name[stem.size()]) & 0xC0) == 0x80) {
    stem.remove_suffix(1);
  }
  return std::string(stem) + suffix;
}

void KeepReferences::append(std::string& out, RefKind, std::string_view original) const {
  appendEscapedAttribute(out, original);
}

BoundProgram::BoundProgram(const MergeProgram& program, const MergeData& data)
    : program_(program), runs_(program.fields.size()), madeFor_(program.fields.size(), 0) {
  columns_.reserve(program.fields.size());
  for (const FieldSlot& f : program.fields) {
    columns_.push_back(f.source == FieldSource::kColumn ? data.column(f.code.name)
                                                        : std::optional<size_t>());
  }
}

std::string BoundProgram::valueText(uint32_t field, const RenderState& state) const {
  const FieldSlot& slot = program_.fields[field];
  const RecordCursor& cursor = state.cursor;
  switch (slot.source) {
    case FieldSource::kColumn: {
      const std::optional<size_t>& column = columns_[field];
      if (!column) return std::string(kMissingFieldText);
      static const Variant kEmpty;
      const std::vector<Variant>* record = cursor.record();
      return formatMergeValue(slot.code,
                              record && *column < record->size() ? (*record)[*column] : kEmpty);
    }
    case FieldSource::kRecordNumber:
      return formatMergeValue(slot.code, Variant(static_cast<double>(cursor.index() + 1)));
    case FieldSource::kSequenceNumber:
      return formatMergeValue(slot.code,
                              Variant(static_cast<double>(state.mergedBefore + cursor.index() -
                                                          state.copyFirstRecord + 1)));
    case FieldSource::kVariable: {
      auto it = state.variables.find(variableKey(slot.code.name));
      if (it == state.variables.end()) return std::string(kMissingReferenceText);
      return formatMergeValue(slot.code, Variant(it->second));
    }
    case FieldSource::kText:
      return formatMergeValue(
          slot.code, Variant(operandText(program_.texts[static_cast<size_t>(slot.text)], state)));
  }
  return {};
}

const std::string& BoundProgram::runs(uint32_t field, const RenderState& state) {
  const FieldSlot& slot = program_.fields[field];
  std::string& out = runs_[field];
  // A column's value depends on the record only; a counter on where the copy stands.
  size_t key = state.cursor.index() + 1;
  if (slot.source == FieldSource::kColumn && madeFor_[field] == key) return out;
  madeFor_[field] = key;
  out.clear();
  std::string text = valueText(field, state);
  if (slot.inInstruction && slot.place != InstructionPlace::kFormula) {
    text = fieldArgumentText(text, slot.place == InstructionPlace::kBare);
  }
  appendRuns(out, slot.runProperties, text, slot.inInstruction);
  return out;
}

std::string BoundProgram::operandText(const Operand& operand, const RenderState& state) const {
  std::string out;
  for (const Operand::Part& part : operand.parts) {
    if (part.field >= 0)
      out += valueText(static_cast<uint32_t>(part.field), state);
    else
      out += part.text;
  }
  return out;
}

bool BoundProgram::holds(const Condition& condition, const RenderState& state) const {
  return compareTexts(condition.comparison, operandText(condition.left, state),
                      operandText(condition.right, state), condition.right.quoted);
}

RenderEnd BoundProgram::render(RenderState& state, const ReferenceResolver& references,
                               std::string& out) {
  const std::vector<Op>& ops = program_.ops();
  size_t next = 0;
  while (next < ops.size()) {
    const Op& op = ops[next++];
    switch (op.kind) {
      case OpKind::kXml:
        out.append(program_.text(op));
        break;
      case OpKind::kField:
        out += runs(op.index, state);
        break;
      case OpKind::kGroupBegin: {
        const std::vector<uint32_t>& slots = program_.groups[op.index].slots;
        bool blank = std::all_of(slots.begin(), slots.end(),
                                 [&](uint32_t s) { return runs(s, state).empty(); });
        if (blank) next = op.target;
        break;
      }
      case OpKind::kGroupEnd:
        break;
      case OpKind::kReference:
        references.append(out, op.reference, program_.text(op));
        break;
      case OpKind::kIf:
        if (!holds(program_.conditions[op.index], state)) next = op.target;
        break;
      case OpKind::kJump:
        next = op.target;
        break;
      case OpKind::kNextRecord:
        state.cursor.advance();
        break;
      case OpKind::kNextIf:
        if (holds(program_.conditions[op.index], state)) state.cursor.advance();
        break;
      case OpKind::kSkipIf:
        if (holds(program_.conditions[op.index], state)) return RenderEnd::kSkipped;
        break;
      case OpKind::kSet: {
        const Assignment& a = program_.assignments[op.index];
        state.variables[variableKey(a.name)] = operandText(a.value, state);
        break;
      }
    }
  }
  return RenderEnd::kDone;
}

size_t renderMerge(const CompiledTemplate& compiled, const MergeData& data, MergeSink& sink) {
  return MergeRun(compiled, data, sink).run();
}

}  // namespace nvwm::docx
