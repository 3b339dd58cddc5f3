// "docx-merge": merges any .docx main document with a table of an SQLite file or a CSV file.
#include <iostream>

#include "cli/commands.h"
#include "runtime/error.h"
#include "services/word/word_engine.h"

namespace nvwm::cli {

void registerDocxMerge(CLI::App& app) {
  auto* cmd = app.add_subcommand(
      "docx-merge", "Merges a .docx main document with a data source into a new .docx");
  struct Options {
    std::string templatePath, data, table, out;
    uint64_t maxPartMb = docx::ReadLimits().maxPartSize >> 20;
  };
  auto options = std::make_shared<Options>();
  cmd->add_option("--template", options->templatePath, "The .docx main document")->required();
  cmd->add_option("--data", options->data, "An SQLite file or a CSV file with a header row")
      ->required();
  cmd->add_option("--table", options->table, "The table of the SQLite file");
  cmd->add_option("--out", options->out, "The merged .docx to write")->required();
  cmd->add_option("--max-part-mb", options->maxPartMb,
                  "The largest part of a .docx to unpack, in MB (256 unless given)")
      ->check(CLI::Range(uint64_t{1}, uint64_t{1} << 20));
  cmd->callback([options] {
    try {
      docx::ReadLimits limits;
      limits.maxPartSize = options->maxPartMb << 20;
      size_t merged = wordengine::mergeFiles(options->templatePath, options->data, options->table,
                                             options->out, limits);
      if (merged == 0) {
        std::cerr << "docx-merge: SKIPIF dropped every record; " << options->out
                  << " holds an empty document\n";
      }
      std::cout << "merged " << merged << (merged == 1 ? " record" : " records") << " into "
                << options->out << "\n";
      setExitCode(0);
    } catch (const RuntimeError& e) {
      std::cerr << "docx-merge: " << e.description() << "\n";
      setExitCode(1);
    }
  });
}

}  // namespace nvwm::cli
