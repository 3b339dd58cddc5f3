// The fill and the template test on a corpus of templates, against results recorded from the
// engine as it stood before its text passes were made faster: both delimiter forms, RTF and
// plain, case folding beyond ASCII, bytes that aren't UTF-8, placeholders at the ends and side
// by side, values that hold placeholders, every jurisdiction of the normaliser.
//
// NVWM_RECORD_FILL_CORPUS=1 rewrites the recorded columns of data/fill_corpus.tsv from the
// engine as it is now, keeping the rest of the file; only for a change of behaviour that is
// meant, and the diff is to be read.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "engine/engine_test_support.h"
#include "engine/values_test_support.h"
#include "runtime/utf8.h"

namespace nvwm::testing {
namespace {

constexpr const char* kCorpus = "fill_corpus.tsv";
constexpr size_t kColumns = 17;
constexpr size_t kTemplate = 12;

std::string dataPath(const std::string& name) {
  return std::string(NVWM_ENGINE_TEST_DATA) + "/" + name;
}

// "%XX" escapes a byte; everything else stands for itself.
std::string unescape(const std::string& cell) {
  std::string out;
  for (size_t i = 0; i < cell.size(); ++i) {
    if (cell[i] == '%' && i + 2 < cell.size()) {
      out += static_cast<char>(std::stoi(cell.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      out += cell[i];
    }
  }
  return out;
}

// Tabs, line breaks, "%", other control bytes and bytes outside well-formed UTF-8 as "%XX".
std::string escape(const std::string& text) {
  std::string out;
  auto hex = [&](unsigned char b) {
    char buffer[4];
    std::snprintf(buffer, sizeof buffer, "%%%02X", b);
    out += buffer;
  };
  for (size_t i = 0; i < text.size();) {
    const auto b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) {
      if (b < 0x20 || b == '%' || b == 0x7F) {
        hex(b);
      } else {
        out += text[i];
      }
      ++i;
      continue;
    }
    size_t n = utf8::sequenceLength(text, i);
    if (n == 0) {
      hex(b);
      ++i;
    } else {
      out.append(text, i, n);
      i += n;
    }
  }
  return out;
}

std::string joined(const std::vector<int32_t>& numbers) {
  std::string out;
  for (int32_t n : numbers) out += (out.empty() ? "" : " ") + std::to_string(n);
  return out;
}

class FillCorpusTest : public ValuesTest {
 protected:
  FillCorpusTest() {
    std::ifstream in(dataPath("fill_corpus_practice.sql"));
    std::stringstream sql;
    sql << in.rdbuf();
    EXPECT_FALSE(sql.str().empty()) << "fill_corpus_practice.sql not found";
    practice.exec(sql.str());
  }

  // The recorded columns for one row of the corpus, escaped as the file holds them.
  std::vector<std::string> run(const std::vector<std::string>& cells) {
    env.locale->setCountryCode(std::stoi(cells[8]));
    env.locale->setProvinceCode(std::stoi(cells[9]));
    const std::string text = unescape(cells[kTemplate]);
    RecordIDs ids = idsFrom(cells, 1);
    bool rtf = cells[10] == "1", swap = cells[11] == "1", sample = false;
    env.refs.errors->errors.clear();
    auto rtb = openedCatalogue(std::stoi(cells[0]));
    env.refs.errors->errors.clear();
    std::string filled =
        rtb->parseRTBComment(text, ids.companyID, ids.contactID, ids.scheduleID, ids.firmID,
                             ids.appointmentID, ids.docketID, ids.taskID, sample, rtf, swap);
    std::string fillErrors = joined(errorNumbers());
    env.refs.errors->errors.clear();
    bool showMessages = false, skipNameCheck = false;
    bool fault = rtb->testRTBComment(text, rtf, showMessages, skipNameCheck);
    return {escape(filled), fillErrors, fault ? "1" : "0", joined(errorNumbers())};
  }
};

TEST_F(FillCorpusTest, FillsAndTestsAsRecorded) {
  const std::vector<TableRow> rows = readTable(kCorpus, kColumns);
  ASSERT_GT(rows.size(), 200u);
  if (std::getenv("NVWM_RECORD_FILL_CORPUS") != nullptr) {
    std::ifstream in(dataPath(kCorpus), std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    for (const TableRow& row : rows) {
      std::string line;
      for (size_t i = 0; i <= kTemplate; ++i) line += row.cells[i] + "\t";
      std::vector<std::string> recorded = run(row.cells);
      for (size_t i = 0; i < recorded.size(); ++i) line += recorded[i] + (i + 1 < 4 ? "\t" : "");
      lines[static_cast<size_t>(row.line - 1)] = line;
    }
    std::ofstream out(dataPath(kCorpus), std::ios::binary | std::ios::trunc);
    for (const std::string& line : lines) out << line << "\n";
    GTEST_SKIP() << "recorded " << rows.size() << " rows into " << kCorpus;
  }
  for (const TableRow& row : rows) {
    SCOPED_TRACE(std::string(kCorpus) + ":" + std::to_string(row.line) + " " +
                 row.cells[kTemplate]);
    std::vector<std::string> got = run(row.cells);
    EXPECT_EQ(got[0], row.cells[13]) << "filled text";
    EXPECT_EQ(got[1], row.cells[14]) << "errors of the fill";
    EXPECT_EQ(got[2], row.cells[15]) << "template fault";
    EXPECT_EQ(got[3], row.cells[16]) << "errors of the test";
  }
}

// The file's escapes are the test's own: a round trip keeps every byte.
TEST(FillCorpusEscapes, KeepEveryByte) {
  const std::string bytes = std::string("a\t\r\n%\xff\xc3\xa9\xe2\x82 \x7f\0z", 14);
  EXPECT_EQ(escape(bytes), "a%09%0D%0A%25%FFé%E2%82 %7F%00z");
  EXPECT_EQ(unescape(escape(bytes)), bytes);
}

}  // namespace
}  // namespace nvwm::testing
