#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run_cli.h"
#include "platform/file_io.h"

namespace zando {

/// A folder of its own for every test, in which it runs zando-cli with captured streams.
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
    std::filesystem::current_path(folder_);
  }
  ~CCliTest() override {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(folder_);
  }

  /// Runs it with the arguments of a line, separated by blanks; "" is an empty one.
  static Outcome Run(const std::string& line) {
    std::istringstream words(line);
    std::vector<std::string> arguments;
    for (std::string word; words >> std::quoted(word);) arguments.push_back(word);
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCli(arguments, out, err);
    return {status, out.str(), err.str()};
  }

  static void Write(const std::string& name, const std::string& bytes) {
    EXPECT_EQ(WriteFileAtomically(name, bytes).Error(), "");
  }

  [[nodiscard]] static std::string Read(const std::filesystem::path& path) {
    const auto contents = ReadWholeFile(path);
    EXPECT_TRUE(contents) << path << ": " << contents.Error();
    return contents.ValueOr("");
  }

  /// A level made by a script.
  static void MakeLevel(const std::string& name, const std::string& script) {
    Write(name + ".zscript", script);
    EXPECT_EQ(Run("run " + name + ".zscript " + name).err, "");
  }

  /// What lies in the folder and below, in order and with a blank after each.
  [[nodiscard]] static std::string FilesHere() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(".")) {
      names.insert(entry.path().lexically_relative("."));
    }
    std::string text;
    for (const std::string& name : names) text += name + ' ';
    return text;
  }

  static std::ptrdiff_t LinesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  std::filesystem::path folder_;
};

}  // namespace zando
