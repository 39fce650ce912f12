#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run_cli.h"
#include "platform/file_io.h"

namespace zando {

/// A folder of its own for every test, and zando-cli run in it with captured streams.
class CCliTest : public testing::Test {
 protected:
  struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
  };

  CCliTest() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(testing::TempDir()) /
              (std::string("zando_") + test->test_suite_name() + '_' + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~CCliTest() override { std::filesystem::remove_all(folder_); }

  static Outcome Run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCli(arguments, out, err);
    return {status, out.str(), err.str()};
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder_ / name; }

  [[nodiscard]] std::string Write(const std::string& name, const std::string& bytes) const {
    EXPECT_EQ(WriteFileAtomically(Path(name), bytes), "");
    return Path(name);
  }

  [[nodiscard]] static std::string Read(const std::filesystem::path& path) {
    const FileContents contents = ReadWholeFile(path);
    EXPECT_TRUE(contents.bytes) << path << ": " << contents.error;
    return contents.bytes.value_or("");
  }

  /// A level made by a script.
  [[nodiscard]] std::string MakeLevel(const std::string& name, const std::string& script) const {
    const Outcome made = Run({"run", Write(name + ".zscript", script), Path(name)});
    EXPECT_EQ(made.status, kCliDone) << made.err;
    return Path(name);
  }

  /// What lies in the folder and below, in order and with a blank after each.
  [[nodiscard]] std::string FilesHere() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
      names.insert(entry.path().lexically_relative(folder_));
    }
    std::string text;
    for (const std::string& name : names) text += name + ' ';
    return text;
  }

  static std::ptrdiff_t LinesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace zando
