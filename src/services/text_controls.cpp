#include "services/text_controls.h"

#include <algorithm>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace nvwm {
namespace {

bool isMember(std::string_view given, std::string_view name) {
  return equalsIgnoringAsciiCase(given, name);
}

[[noreturn]] void noSuchMember(std::string_view member) {
  raise(ErrorNumber::kNoSuchMember, member);
}

void expectCount(std::span<const Variant> args, size_t count) {
  if (args.size() != count) {
    raiseWith(450, "Wrong number of arguments or invalid property assignment");
  }
}

// Code points of UTF-8 text: every byte that is not a continuation byte starts one, so text
// that isn't valid UTF-8 still gets a count and offsets on byte boundaries.
bool startsCodePoint(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

int32_t codePoints(std::string_view text) {
  return static_cast<int32_t>(std::ranges::count_if(text, startsCodePoint));
}

// The byte offset of code point n (0-based); the text's size for n at or past the end.
size_t byteOffset(std::string_view text, int32_t n) {
  int32_t seen = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (startsCodePoint(text[i]) && seen++ == n) return i;
  }
  return text.size();
}

}  // namespace

// --- TextListBox ---

TextListBox::Entry& TextListBox::at(const Variant& index) {
  const int32_t i = CLng(index);
  if (i < 0 || static_cast<size_t>(i) >= entries_.size()) {
    raiseWith(381, "Invalid property array index");
  }
  return entries_[static_cast<size_t>(i)];
}

Variant TextListBox::invoke(std::string_view member, std::span<const Variant> args) {
  if (isMember(member, "Clear")) {
    expectCount(args, 0);
    entries_.clear();
    newIndex_ = -1;
    return {};
  }
  if (isMember(member, "AddItem")) {
    if (args.size() != 2) expectCount(args, 1);
    Entry entry{CStr(args[0]), 0};
    size_t where = entries_.size();
    if (args.size() == 2 && !args[1].isMissing()) {
      const int32_t i = CLng(args[1]);
      if (i < 0 || static_cast<size_t>(i) > entries_.size()) {
        raise(ErrorNumber::kInvalidProcedureCall, "AddItem index");
      }
      where = static_cast<size_t>(i);
    }
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(where), std::move(entry));
    newIndex_ = static_cast<int32_t>(where);
    return {};
  }
  if (isMember(member, "NewIndex")) {
    expectCount(args, 0);
    return Variant(newIndex_);
  }
  if (isMember(member, "ItemData")) {
    expectCount(args, 1);
    return Variant(at(args[0]).itemData);
  }
  if (isMember(member, "List")) {
    expectCount(args, 1);
    return Variant(at(args[0]).text);
  }
  if (isMember(member, "ListCount")) {
    expectCount(args, 0);
    return Variant(static_cast<int32_t>(entries_.size()));
  }
  if (isMember(member, "Refresh")) {
    expectCount(args, 0);
    ++refreshes_;
    return {};
  }
  noSuchMember(member);
}

void TextListBox::put(std::string_view member, std::span<const Variant> indices,
                      const Variant& value) {
  if (isMember(member, "ItemData")) {
    expectCount(indices, 1);
    Entry& entry = at(indices[0]);
    entry.itemData = CLng(value);
    return;
  }
  if (isMember(member, "List")) {
    expectCount(indices, 1);
    Entry& entry = at(indices[0]);
    entry.text = CStr(value);
    return;
  }
  noSuchMember(member);
}

std::string TextListBox::text() const {
  std::string out;
  for (const Entry& e : entries_) out += std::to_string(e.itemData) + "\t" + e.text + "\n";
  return out;
}

// --- TextRichTextBox ---

Variant TextRichTextBox::invoke(std::string_view member, std::span<const Variant> args) {
  if (isMember(member, "Text")) {
    expectCount(args, 0);
    return Variant(text_);
  }
  if (isMember(member, "SelStart")) {
    expectCount(args, 0);
    return Variant(selStart_);
  }
  noSuchMember(member);
}

void TextRichTextBox::put(std::string_view member, std::span<const Variant> indices,
                          const Variant& value) {
  if (isMember(member, "Text")) {
    expectCount(indices, 0);
    text_ = CStr(value);
    selStart_ = 0;
    return;
  }
  if (isMember(member, "SelStart")) {
    expectCount(indices, 0);
    const int32_t position = CLng(value);
    if (position < 0) raiseWith(380, "Invalid property value");
    selStart_ = std::min(position, codePoints(text_));
    return;
  }
  noSuchMember(member);
}

// --- TextRTBTextInserter ---

void TextRTBTextInserter::insertTextAt(LateBoundObject& richTextControl, const std::string& text,
                                       int32_t position) {
  std::string current = CStr(richTextControl.invoke("Text"));
  const int32_t at = std::clamp(position, 0, codePoints(current));
  current.insert(byteOffset(current, at), text);
  richTextControl.put("Text", {}, Variant(current));
  richTextControl.put("SelStart", {}, Variant(at + codePoints(text)));
}

}  // namespace nvwm
