// Public: text-backed stand-ins for the host's list box and rich-text box, driven by member
// name as the library drives a host's controls, and the RTBTextInserter that writes into a
// rich-text box. Tests and the command line look at their text.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/controls.h"

namespace nvwm {

// Member errors shared by both controls (numbers of the original runtime):
//   438 an unknown member, or a put on a member that can't be written;
//   450 the wrong number of arguments or indices;
//   381 an entry index outside 0..ListCount-1;
//   380 an invalid property value (a negative SelStart);
//   13/6/94 from converting an argument (CLng, CStr).
// Member names are matched without regard to case ("additem" is "AddItem").

// A list box of text entries, each with its ItemData (0 when added). Members:
//   Clear                   empties the list; NewIndex becomes -1
//   AddItem(text[, index])  appends, or inserts at index (0..ListCount, else 5); NewIndex is
//                           the new entry's index
//   NewIndex                the index of the entry added last, -1 when none
//   ItemData(i)             get and put: the entry's number
//   List(i)                 get and put: the entry's text
//   ListCount               the number of entries
//   Refresh                 counts the refreshes (refreshCount())
// Not thread-safe.
class TextListBox : public LateBoundObject {
 public:
  struct Entry {
    std::string text;
    int32_t itemData = 0;
  };

  Variant invoke(std::string_view member, std::span<const Variant> args = {}) override;
  void put(std::string_view member, std::span<const Variant> indices,
           const Variant& value) override;

  const std::vector<Entry>& entries() const { return entries_; }
  int refreshCount() const { return refreshes_; }
  // One line per entry, "ItemData<TAB>text", for a person or a test to read.
  std::string text() const;

 private:
  Entry& at(const Variant& index);

  std::vector<Entry> entries_;
  int32_t newIndex_ = -1;
  int refreshes_ = 0;
};

// A rich-text box that keeps plain text and a caret. Members:
//   Text       get and put; a put moves the caret to 0
//   SelStart   get and put: the caret, in characters (code points) from 0; a put beyond the
//              end goes to the end, a negative one raises 380
// Not thread-safe.
class TextRichTextBox : public LateBoundObject {
 public:
  TextRichTextBox() = default;
  explicit TextRichTextBox(std::string text) : text_(std::move(text)) {}

  Variant invoke(std::string_view member, std::span<const Variant> args = {}) override;
  void put(std::string_view member, std::span<const Variant> indices,
           const Variant& value) override;

  const std::string& text() const { return text_; }
  int32_t selStart() const { return selStart_; }

 private:
  std::string text_;
  int32_t selStart_ = 0;
};

// Inserts the text at a character position of any control that has "Text" and "SelStart"
// (counted in code points from 0, as SelStart counts). A position past the end appends, a
// negative one inserts at the start. The caret is left after the inserted text. Errors of the
// control's members go to the caller.
class TextRTBTextInserter : public RTBTextInserter {
 public:
  void insertTextAt(LateBoundObject& richTextControl, const std::string& text,
                    int32_t position) override;
};

}  // namespace nvwm
