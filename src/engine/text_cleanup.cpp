// The text clean-up passes of a fill: how one placeholder is replaced, how the placeholders
// nobody filled are removed, how a value with line breaks is made fit for RTF, and the
// blank-line routine that nothing calls.
//
// Malformed input is ordinary input here: invalid UTF-8 is searched and kept as the runtime's
// text functions do (runtime/utf8.h), and an RTF text cut off in the middle of an escape simply
// doesn't hold the delimiter it was cut from.
#include <optional>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/placeholder_grammar.h"
#include "host/routine.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

constexpr const char* kParagraph = "\\par";

}  // namespace

bool clsInsertFieldsInRTB::replaceText(std::string& workText, std::string placeholder,
                                       std::string value, bool& isRTF) {
  FoldedText text(std::move(workText));
  bool failed = replaceFoldedText(text, placeholder, value, isRTF);
  workText = text.release();
  return failed;
}

bool clsInsertFieldsInRTB::replaceFoldedText(FoldedText& text, const std::string& placeholder,
                                             const std::string& value, bool isRTF) {
  bool failed = false;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-replaceText", errorService(),
            [&](const RuntimeError&) { failed = true; });
  if (!isRTF) {
    r.step([&] { text.replaceAll(placeholder, value); });
    return failed;
  }

  std::string target = placeholder;
  std::optional<TextMatch> hit;
  r.step([&] { hit = text.match(target); });
  // A caller may pass the plain form for a text that holds the escaped one.
  r.step([&] {
    if (!hit) {
      target = convertFieldName(placeholder);
      hit = text.match(target);
    }
  });
  r.step([&] {
    if (!hit) r.exit();
  });
  // The value is kept off the RTF control word or character before the placeholder by a blank,
  // so "(«Name»)" becomes "( Smith)". The choice is made once, at the first occurrence, and holds
  // for all. At the first character there is no character before: Mid raises 5, as it always
  // has, and the text stays. Otherwise the character before is a blank exactly when the byte
  // before is one: no longer character and no bad byte ends in 0x20.
  r.step([&] {
    if (hit->byteBegin == 0) Mid(text.text(), 0, 1);
    bool afterBlank = text.text()[hit->byteBegin - 1] == ' ';
    // No match stands before the first one.
    text.replaceAll(target, afterBlank ? value : " " + value, -1, hit->position);
  });
  return failed;
}

bool clsInsertFieldsInRTB::replaceUnfoundMergeFieldsWithBlanks(std::string& workText) {
  bool failed = false;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-replaceUnfoundMergeFieldsWithBlanks",
            errorService(), [&](const RuntimeError&) { failed = true; });
  // On an empty catalogue unknown placeholders survive.
  r.step([&] {
    if (FieldListStructure_->getRowCount() < 1) r.exit();
  });
  const char* open = engine::kOpenPlain;
  const char* close = engine::kClosePlain;
  bool FoundAnyPlaceholder = false;
  // Folded once: the second turn runs only when the first removed nothing.
  FoldedText text;
  r.step([&] { text = FoldedText(workText); });
  for (int turn = 1; turn <= 2 && r.running(); ++turn) {
    int32_t position = 0;
    r.step([&] { position = text.find(open); });
    while (position > 0 && !failed && r.running()) {
      bool removedSome = false;
      // The cut ends at the first character of the closing delimiter: with the escaped form its
      // other three characters, "'bb", stay behind. Without a closing delimiter the length is
      // negative and Mid raises 5, which ends the loop.
      r.step([&] {
        int32_t end = text.find(close, position + 1);
        std::string cut = Mid(text.text(), position, end - position + 1);
        std::string rest = Replace(text.text(), cut, "", 1, -1, CompareMode::kBinary);
        removedSome = rest.size() < text.text().size();
        workText = rest;
        text = FoldedText(std::move(rest));
      });
      r.step([&] {
        position = text.find(open);
        FoundAnyPlaceholder = true;
      });
      // An unclosed opening delimiter at the very start cuts nothing and would be found again
      // for ever: stop there, leaving it in the text.
      if (!removedSome) break;
    }
    // Leftovers in both forms lose only those in the plain form.
    if (FoundAnyPlaceholder) break;
    open = engine::kOpenEscaped;
    close = engine::kCloseEscaped;
  }
  return failed;
}

std::string clsInsertFieldsInRTB::convertToRTF(std::string value) {
  std::string result = value;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-convertToRTF", errorService());
  // Without word wrap a multi-line value, an address say, runs on with commas.
  r.step([&] {
    if (!UseWordWrap_) {
      result = Replace(value, engine::kLineBreak, std::string(", ") + engine::kLineBreak, 1, -1,
                       CompareMode::kText);
      r.exit();
    }
  });
  std::string prefix;
  bool hasLineBreak = true;
  r.step([&] {
    hasLineBreak = InStr(1, value, engine::kLineBreak, CompareMode::kText) > 0;
    if (!hasLineBreak) return;
    // The text after the last paragraph mark before the source position, up to a "<": with the
    // two members never assigned this collects nothing, and the prefix is "\par ".
    std::string collected;
    int32_t at = InStr(1, ParagraphSourceText_, kParagraph, CompareMode::kText);
    if (at > 0 && at < ParagraphSourcePosition_) {
      int32_t last = at;
      while (at > 0 && at < ParagraphSourcePosition_) {
        last = at;
        at = InStr(at + 1, ParagraphSourceText_, kParagraph, CompareMode::kText);
      }
      for (int32_t p = last + 5; p < ParagraphSourcePosition_; ++p) {
        std::string character = Mid(ParagraphSourceText_, p, 1);
        if (character.empty() || character == "<") break;
        collected += character;
      }
    }
    prefix = std::string(kParagraph) + " " + collected;
  });
  // Without a line break the replacement would give the value back as it is.
  r.step([&] {
    if (!hasLineBreak) return;
    result =
        Replace(value, engine::kLineBreak, prefix + engine::kLineBreak, 1, -1, CompareMode::kText);
  });
  return result;
}

std::string clsInsertFieldsInRTB::removeBlankLinesFromRTFText(std::string& text) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-removeBlankLinesFromRTFText", errorService());
  // The text without its empty paragraphs is worked out and then dropped: the routine gives back
  // what it was given. Kept with this effect for the users of the class.
  r.step([&] {
    std::string withoutBlankLines =
        Replace(text, std::string(kParagraph) + " " + engine::kLineBreak, "");
    static_cast<void>(withoutBlankLines);
  });
  return text;
}

}  // namespace nvwm
