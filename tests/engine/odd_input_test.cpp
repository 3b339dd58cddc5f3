// Texts made of the pieces that trouble the passes (delimiters of both forms cut anywhere, round
// brackets, commas, bad bytes, multi-byte characters): every routine gives a result.
#include <gtest/gtest.h>

#include <random>

#include "engine/engine_test_support.h"
#include "services/message_services.h"

namespace nvwm::testing {
namespace {

class OddInputTest : public EngineTest {};

std::string oddText(std::mt19937& random) {
  static const char* const kPieces[] = {"«",
                                        "»",
                                        "\\'ab",
                                        "\\'bb",
                                        "\\'a",
                                        "\\'",
                                        "\\",
                                        "(",
                                        ")",
                                        ",",
                                        " ",
                                        "<<",
                                        ">>",
                                        "\r\n",
                                        "\xff",
                                        "\xc3",
                                        "\xe2\x82",
                                        "é",
                                        "🦆",
                                        "Company Name",
                                        "Todays Date",
                                        ", d)",
                                        "Docket",
                                        "{\\rtf1 ",
                                        "}",
                                        "«Remittance Year»",
                                        "x"};
  std::uniform_int_distribution<size_t> piece(0, std::size(kPieces) - 1), count(0, 24);
  std::string text;
  for (size_t n = count(random); n > 0; --n) text += kPieces[piece(random)];
  return text;
}

TEST_F(OddInputTest, EveryRoutineGivesAResult) {
  auto messages = std::make_shared<RecordingMessageService>();
  rtb->MsgboxClassRTB(messages);
  std::mt19937 random(20100701);
  for (int i = 0; i < 3000; ++i) {
    std::string text = oddText(random);
    SCOPED_TRACE(text);
    for (bool isRTF : {false, true}) {
      bool show = true, skip = i % 2 == 0;
      rtb->testRTBComment(text, isRTF, show, skip);
      std::string replaced = text;
      rtb->replaceText(replaced, isRTF ? "\\'abx\\'bb" : "«x»", "v", isRTF);
    }
    std::string blanked = text;
    rtb->replaceUnfoundMergeFieldsWithBlanks(blanked);
    EXPECT_LE(blanked.size(), text.size());
    rtb->convertProvinceFields(text);
    EXPECT_GE(rtb->convertToRTF(text).size(), text.size());
  }
  // Only the run-time errors the passes are known to raise: 5 for a position or length out of
  // range (an unclosed delimiter, a placeholder at the start), 9 for a date without a format.
  for (const RuntimeError& e : env.refs.errors->errors) {
    EXPECT_TRUE(e.number() == 5 || e.number() == 9) << e.number() << " " << e.description();
  }
}

}  // namespace
}  // namespace nvwm::testing
