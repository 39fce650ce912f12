#include "document/file_context.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace zando {
namespace {

/// The search as the format describes it: line by line, rewinding when it fails.
class CPlainSearch {
 public:
  explicit CPlainSearch(const std::string& text) : input_(text) {}

  bool FindKey(const std::string& key, const std::string& endMarker) {
    const auto before = input_.tellg();
    for (std::string read; std::getline(input_, read);) {
      const std::size_t start = read.find_first_not_of(" \t\v\f\r");
      if (start == std::string::npos) continue;
      line = read.substr(start, read.find_last_not_of(" \t\v\f\r") + 1 - start);
      if (Begins(key)) return true;
      if (!endMarker.empty() && Begins(endMarker)) break;
    }
    input_.clear();
    input_.seekg(before);
    return false;
  }

  std::string line;

 private:
  [[nodiscard]] bool Begins(const std::string& key) const {
    if (line.size() < key.size()) return false;
    for (std::size_t i = 0; i < key.size(); ++i) {
      if ((line[i] | 0x20) != (key[i] | 0x20)) return false;
    }
    return true;
  }

  std::istringstream input_;
};

TEST(FileContext, FindsTheLinesThatAPlainSearchFinds) {
  const std::vector<std::string> keys{"nB", "nBid", "V", "End", "End A", "NumVrts", "K", ""};
  const std::vector<std::string> lines{"nB 1",  "NBID 4", "v 1 2", "End A", "end", "numvrts", "k x",
                                       " \t\r", "",       "other", "nb",    "\vV", "e",       "K"};
  std::minstd_rand random(7);
  const auto pick = [&random](const std::vector<std::string>& from) {
    return from[random() % from.size()];
  };
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    for (auto left = random() % 24; left != 0; --left) text += pick(lines) + "\n";
    if (random() % 2 == 0 && !text.empty()) text.pop_back();
    CPlainSearch plain(text);
    CFileContext file(text);
    for (int search = 0; search < 20; ++search) {
      const std::string& key = *std::find(keys.begin(), keys.end(), pick(keys));
      const std::string& marker = *std::find(keys.begin(), keys.end(), pick(keys));
      file.EndMarker = marker;
      const bool found = plain.FindKey(key, marker);
      ASSERT_EQ(file.FindKey(key), found) << text << "\nkey " << key << " marker " << marker;
      if (found) {
        ASSERT_EQ(file.line, plain.line) << text;
      }
    }
  }
}

TEST(FileContext, ReadsNumbersAsTheFormatSpellsThem) {
  struct Case {
    std::string line;
    std::string read;
  };
  const Vector before{7.0, 8.0, 9.0};
  for (const auto& [line, read] : std::vector<Case>{{"P 1 2 3", "1 2 3"},
                                                    {"P\t+1 -2.50 .5e1 4", "1 -2.5 5"},
                                                    {"P  1\v\f2\r3", "1 2 3"},
                                                    {"P 1.5e400 2 3", "7 8 9"},
                                                    {"P 1 x 3", "1 8 9"},
                                                    {"P +-1 2 3", "7 8 9"},
                                                    {"P 1,5 2 3", "1 8 9"},
                                                    {"P inf -nan 1e-320", "inf -nan 9.99989e-321"},
                                                    {"P1 2 3", "2 3 9"},
                                                    {"P", "7 8 9"},
                                                    {"P 1234.5678 0.1234567 1234567",  //
                                                     "1234.57 0.123457 1.23457e+06"}}) {
    CFileContext input(line);
    Vector vector = before;
    EXPECT_TRUE(input.Exchange("P", vector));
    CFileContext output;
    output.Exchange("P", vector);
    EXPECT_EQ(output.TakeOutput(), "P " + read + "\r\n") << line;
  }
  for (const auto& [line, read] : std::vector<Case>{
           {"P 12.9", "12"}, {"P -2147483648", "-2147483648"}, {"P 2147483648", "5"}, {"P", "5"}}) {
    CFileContext input(line);
    std::int32_t number = 5;
    EXPECT_TRUE(input.Exchange("P", number));
    EXPECT_EQ(std::to_string(number), read) << line;
  }
}

}  // namespace
}  // namespace zando
