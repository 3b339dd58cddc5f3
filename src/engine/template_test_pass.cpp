// The template test pass: walks a template from left to right, takes its placeholders out one
// at a time and tells the user, in plain words, the first fault it finds.
//
// The walk, on the normalised text (old notations and retired names rewritten first):
//
//   template    := text { open body close text }
//   body        := name | "(" name "," format ")"
//   name        := at most 30 characters, a DisplayName of the catalogue or "Todays Date"
//   format      := one of the fourteen date formats, compared exactly
//   (engine/placeholder_grammar.h)
//
// Only one notation of the delimiters is walked in one call: the escaped one for RTF, the plain
// one otherwise. A closing delimiter before the next opening one (or none after it) is told as a
// missing opening bracket. A body of 31 characters or more is how a forgotten closing delimiter
// shows: the walk has swallowed text up to a later placeholder's close. A bracketed body without
// a comma has no format to compare: the run time's index error goes to the error service, which
// tells the user in its own words, and the template counts as faulty.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/placeholder_grammar.h"
#include "host/routine.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

// The longest field name; a longer body means a closing delimiter was forgotten.
constexpr int32_t kLongestFieldName = 30;

// The messages, as the user reads them.
const char* const kMissingOpening =
    "You are missing your opening brackets, '«' in one of your expressions";
const char* const kMissingClosingRound =
    "You are missing the closing round bracket, ')' in one of your date expressions";
const char* const kMissingOpeningRound =
    "You are missing the opening round bracket, '(' in one of your date expressions";
const char* const kMissingClosing =
    "You are missing a closing bracket, '»' in one of your expressions.  Make sure you have a "
    "bracket immediately before and after a field.\r\n\r\neg. «Company Name»";

std::string invalidDateFormat(const std::string& format) {
  return "The date format of: '" + format +
         "' is not valid.  Please see help for valid date formats.";
}

std::string unknownFieldName(const std::string& name) {
  return "The Tallowbrook Pad did not recognize: «" + name + "» as a valid placeholder field name.";
}

bool isDateFormat(const std::string& format) {
  for (const engine::DateFormatRow& row : engine::kDateFormats) {
    if (format == row.format) return true;
  }
  return false;
}

// The work text of the walk: the normalised template folded once, of which the walk looks only
// at what follows the placeholders taken out so far. Positions are those of that rest, from 1.
class WorkText {
 public:
  WorkText(std::string text, std::string open, std::string close)
      : text_(std::move(text)), open_(std::move(open)), close_(std::move(close)) {}

  int32_t firstOpen() const { return relative(text_.find(open_, start_)); }
  int32_t firstClose() const { return relative(text_.find(close_, start_)); }

  // Takes out the placeholder whose opening delimiter stands at `openPosition` of the rest: gives
  // the text between its delimiters, and the rest then begins after its closing delimiter.
  // REQUIRES: a closing delimiter follows the opening one (the walk has checked that).
  std::string takePlaceholder(int32_t openPosition) {
    std::optional<TextMatch> open = text_.match(open_, start_ + openPosition - 1);
    std::optional<TextMatch> close = open ? text_.match(close_, open->position + 1) : std::nullopt;
    if (!close) raise(ErrorNumber::kInvalidProcedureCall, "placeholder without delimiters");
    start_ = close->endPosition;
    return text_.text().substr(open->byteEnd, close->byteBegin - open->byteEnd);
  }

 private:
  int32_t relative(int32_t position) const { return position == 0 ? 0 : position - start_ + 1; }

  FoldedText text_;
  std::string open_, close_;
  int32_t start_ = 1;  // where the rest begins in the whole text
};

}  // namespace

bool clsInsertFieldsInRTB::testRTBComment(std::string templateText, bool& isRTF, bool& showMessages,
                                          bool& skipFieldNameCheck) {
  bool fault = false;
  // Any run-time error makes the template faulty.
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-testRTBComment", errorService(),
            [&](const RuntimeError&) { fault = true; });
  auto tell = [&](const std::string& message) {
    fault = true;
    if (!showMessages) return;
    if (MsgboxClassRTB_ == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "MsgboxClassRTB");
    MsgboxClassRTB_->showMessage(message, 7, Variant(MDIFormRTB_), 0, false, 101, false, "", false);
  };

  std::string open = engine::kOpenPlain, close = engine::kClosePlain;
  r.step([&] {
    if (isRTF) {
      open = convertFieldName(engine::kOpenPlain);
      close = convertFieldName(engine::kClosePlain);
    }
  });
  std::unique_ptr<WorkText> work;
  r.step(
      [&] { work = std::make_unique<WorkText>(convertProvinceFields(templateText), open, close); });
  if (!work) return fault;

  int32_t openPosition = 0, closePosition = 0;
  r.step([&] {
    openPosition = work->firstOpen();
    closePosition = work->firstClose();
  });
  r.step([&] {
    if (closePosition < openPosition) tell(kMissingOpening);
  });

  while (openPosition >= 1 && !fault && r.running()) {
    std::vector<std::string> parts(2);
    r.step([&] { parts[0] = work->takePlaceholder(openPosition); });
    r.step([&] {
      if (Left(parts[0], 1) != "(") {
        if (Right(parts[0], 1) == ")") tell(kMissingOpeningRound);
        return;
      }
      if (Right(parts[0], 1) != ")") tell(kMissingClosingRound);
      if (fault) return;
      // The name and the format, which may hold a comma itself. Without a comma there is no
      // format: the index error is the run time's, as the user is meant to hear it.
      std::vector<std::string> pieces = Split(Mid(parts[0], 2, Len(parts[0]) - 2), ",", 2);
      if (pieces.size() < 2) {
        raise(ErrorNumber::kSubscriptOutOfRange, "the date placeholder has no format");
      }
      parts = {Trim(pieces[0]), Trim(pieces[1])};
      if (!isDateFormat(parts[1])) tell(invalidDateFormat(parts[1]));
    });
    r.step([&] {
      if (Len(parts[0]) > kLongestFieldName && !fault) tell(kMissingClosing);
    });
    r.step([&] {
      if (!skipFieldNameCheck && !fault && !testStr(parts[0])) tell(unknownFieldName(parts[0]));
    });
    // Searched again after a fault as well: a stray closing delimiter after the faulty
    // placeholder adds its own message.
    r.step([&] {
      openPosition = work->firstOpen();
      closePosition = work->firstClose();
    });
    r.step([&] {
      if (closePosition < openPosition) tell(kMissingOpening);
    });
  }
  return fault;
}

}  // namespace nvwm
