// Bad input through the nvwordmerge program, as a user would give it: every case of
// bad_inputs.tsv with its exit code and message. Placeholders in the commands:
//   {nvwordmerge}       the program
//   {letter}            a letter with a Name field; {letter-link} a symbolic link to it,
//                       {letter-dotted} the same file spelt "<folder>/./letter.docx"
//   {date-letter}       a letter showing the field D with \@ "d MMMM yyyy"
//   {clients}           a CSV file with a Name column and two rows
//   {big-csv}           a 16 MB CSV file
//   {sample}            the sample practice database; {readonly-sample} a copy without write
//                       permission; {corrupt-db} a copy whose second and third pages are junk
//   {dates-db}          an SQLite file whose table T holds a DATETIME of 1e300
//   {docx:NAME}         a bad .docx of the fuzz corpus (fuzz/inputs/sample_inputs.h)
//   {csv:NAME}          a bad CSV file of the fuzz corpus
//   {out}, {missing}    an output path, and a path that doesn't exist
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "docx/docx_test_support.h"
#include "fuzz/inputs/sample_inputs.h"
#include "support/program_run.h"
#include "support/temp_dir.h"

namespace nvwm {
namespace {

namespace fs = std::filesystem;
using testing::ProgramRun;
using testing::readFile;
using testing::runProgram;
using testing::TempDir;
using testing::writeFile;

struct Row {
  std::string name, command;
  int exitCode = 0;
  std::string stream, expected, skip;
};

std::string unescape(const std::string& s) {
  std::string out;
  for (size_t i = 0; i < s.size(); ++i) {
    if (s[i] == '\\' && i + 1 < s.size() && s[i + 1] == 'n') {
      out += '\n';
      ++i;
    } else {
      out += s[i];
    }
  }
  return out;
}

std::vector<Row> readTable() {
  std::ifstream in(std::string(NVWM_SOURCE_DIR) + "/tests/cli/bad_inputs.tsv");
  std::vector<Row> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> cells;
    std::stringstream fields(line);
    for (std::string cell; std::getline(fields, cell, '\t');) cells.push_back(cell);
    cells.resize(6);
    rows.push_back(
        {cells[0], cells[1], std::atoi(cells[2].c_str()), cells[3], unescape(cells[4]), cells[5]});
  }
  return rows;
}

// A shell command line quoted as one argument of sh -c.
std::string shellQuoted(const std::string& command) {
  std::string out = "'";
  for (char c : command) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

// Runs a shell command line (the table's commands use the shell: ulimit, quoting).
ProgramRun runShell(const std::string& command) {
  return runProgram("/bin/sh", "-c " + shellQuoted(command));
}

class BadInputTable {
 public:
  BadInputTable() {
    fixed_["{nvwordmerge}"] = NVWM_CLI;
    std::string letter = file("letter.docx");
    writeFile(letter,
              fuzzing::docxWithBody(R"(<w:p><w:r><w:t xml:space="preserve">Dear </w:t></w:r>)"
                                    R"(<w:fldSimple w:instr=" MERGEFIELD Name "/></w:p>)"));
    fixed_["{letter}"] = letter;
    fs::create_symlink(letter, file("letter-link.docx"));
    fixed_["{letter-link}"] = file("letter-link.docx");
    fixed_["{letter-dotted}"] = (dir_.path() / "." / "letter.docx").string();
    fixed_["{date-letter}"] = file("date-letter.docx");
    writeFile(file("date-letter.docx"),
              fuzzing::docxWithBody(R"(<w:p><w:fldSimple w:instr=" MERGEFIELD D \@ )"
                                    R"(&quot;d MMMM yyyy&quot; "/></w:p>)"));
    fixed_["{clients}"] = file("clients.csv");
    writeFile(file("clients.csv"), "Name\nAnn\nBob\n");
    std::string big = "Name\n";
    for (int i = 0; big.size() < (16 << 20); ++i)
      big += "client number " + std::to_string(i) + " with a longer name\n";
    fixed_["{big-csv}"] = file("big.csv");
    writeFile(file("big.csv"), big);

    std::string sample = file("sample.db");
    ProgramRun made = runProgram(NVWM_CLI, "sample-db '" + sample + "'");
    EXPECT_EQ(made.exitCode, 0) << made.err;
    fixed_["{sample}"] = sample;
    fs::copy_file(sample, file("readonly.db"));
    ::chmod(file("readonly.db").c_str(), 0444);
    fixed_["{readonly-sample}"] = file("readonly.db");
    std::string damaged = readFile(sample);
    for (size_t i = 4096; i < 3 * 4096 && i < damaged.size(); ++i) damaged[i] = '\xff';
    writeFile(file("corrupt.db"), damaged);
    fixed_["{corrupt-db}"] = file("corrupt.db");
    testing::execSqlite(
        file("dates.db"),
        "CREATE TABLE T (Name TEXT, D DATETIME); INSERT INTO T VALUES ('a', 1e300);");
    fixed_["{dates-db}"] = file("dates.db");
    fixed_["{out}"] = file("out.docx");
    fixed_["{missing}"] = file("missing/none.docx");
  }

  // The command with its placeholders replaced (files of the corpus written as needed).
  std::string expand(std::string command) {
    for (const auto& [key, value] : fixed_) {
      for (size_t at; (at = command.find(key)) != std::string::npos;)
        command.replace(at, key.size(), "'" + value + "'");
    }
    expandCorpus(command, "{docx:", fuzzing::docxMergeBadInputs);
    expandCorpus(command, "{csv:", fuzzing::csvBadInputs);
    return command;
  }

 private:
  std::string file(const std::string& name) const { return dir_.file(name); }

  void expandCorpus(std::string& command, const std::string& prefix,
                    std::vector<fuzzing::NamedInput> (*inputs)()) {
    for (size_t at; (at = command.find(prefix)) != std::string::npos;) {
      size_t end = command.find('}', at);
      std::string name = command.substr(at + prefix.size(), end - at - prefix.size());
      std::string path = file(name);
      bool found = false;
      for (const auto& input : inputs()) {
        if (input.name != name) continue;
        writeFile(path, input.bytes);
        found = true;
      }
      EXPECT_TRUE(found) << "no input " << name;
      command.replace(at, end + 1 - at, "'" + path + "'");
    }
  }

  TempDir dir_;
  std::map<std::string, std::string> fixed_;
};

TEST(BadInputTableTest, EveryCaseGivesItsExitCodeAndMessage) {
  BadInputTable table;
  std::vector<Row> rows = readTable();
  ASSERT_GT(rows.size(), 40u);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
#ifdef NVWM_SANITIZED
    if (row.skip == "sanitized") continue;
#endif
    ProgramRun r = runShell(table.expand(row.command));
    EXPECT_EQ(r.exitCode, row.exitCode) << "stdout: " << r.out << "\nstderr: " << r.err;
    const std::string& stream = row.stream == "out" ? r.out : r.err;
    EXPECT_NE(stream.find(row.expected), std::string::npos)
        << row.stream << ": " << stream << "\nexpected: " << row.expected;
    if (row.exitCode != 0) {
      // One line on stderr, never a trace or an abort's noise.
      EXPECT_EQ(r.err.find('\n'), r.err.size() - 1) << r.err;
    }
  }
}

}  // namespace
}  // namespace nvwm
