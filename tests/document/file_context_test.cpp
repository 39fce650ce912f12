#include "document/file_context.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace zando {
namespace {

/// The search as the format describes it: line by line from the given one on. Returns the index of
/// the line that begins with the key, or the number of lines.
std::size_t PlainSearch(const std::vector<std::string>& lines, std::size_t from,
                        const std::string& key, const std::string& marker) {
  const auto begins = [](const std::string& line, const std::string& with) {
    return EqualIgnoringCase(line.substr(0, with.size()), with);
  };
  for (std::size_t at = from; at < lines.size(); ++at) {
    if (begins(lines[at], key)) return at;
    if (!marker.empty() && begins(lines[at], marker)) break;
  }
  return lines.size();
}

TEST(FileContext, FindsTheLinesThatAPlainSearchFinds) {
  const std::vector<std::string> keys{"nB", "nBid", "V", "End", "End A", "NumVrts", "K", ""};
  const std::vector<std::string> all{"nB 1",    "NBID 4", "v 1 2", "End A", "end",
                                     "numvrts", "k x",    "other", "nb",    "e"};
  std::minstd_rand random(7);
  const auto pick = [&random](const std::vector<std::string>& from) {
    return from[random() % from.size()];
  };
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::string> lines;
    std::string text;
    for (auto left = random() % 24; left != 0; --left) {
      lines.push_back(pick(all));
      text += (random() % 2 == 0 ? "\v " : "\t\r\n\n") + lines.back() + " \r\n";
    }
    CFileContext file(text);
    std::size_t position = 0;
    for (int search = 0; search < 20; ++search) {
      const std::string key = pick(keys);
      const std::string marker = pick(keys);
      file.EndMarker = marker;
      const std::size_t expected = PlainSearch(lines, position, key, marker);
      ASSERT_EQ(file.FindKey(key), expected < lines.size()) << text << key << " before " << marker;
      if (expected == lines.size()) continue;
      ASSERT_EQ(file.line, lines[expected]) << text;
      position = expected + 1;
    }
  }
}

TEST(FileContext, ReadsNumbersAsTheFormatSpellsThem) {
  using Case = std::pair<std::string, std::string>;  // a line, and what is read of it
  for (const auto& [line, read] :
       std::vector<Case>{{"P\t+1 -2.50 .5e1 4", "1 -2.5 5"},
                         {"P  1\v\f2\r3", "1 2 3"},
                         {"P 1.5e400 2 3", "7 8 9"},
                         {"P +-1 2 3", "7 8 9"},
                         {"P 1,5 2 3", "1 8 9"},
                         {"P inf -nan 1e-320", "inf -nan 9.99989e-321"},
                         {"P", "7 8 9"},
                         {"P 1234.5678 0.1234567 1234567", "1234.57 0.123457 1.23457e+06"}}) {
    CFileContext input(line);
    Vector vector{7.0, 8.0, 9.0};
    EXPECT_TRUE(input.Exchange("P", vector));
    CFileContext output;
    output.Exchange("P", vector);
    EXPECT_EQ(output.TakeOutput(), "P " + read + "\r\n") << line;
  }
  for (const auto& [line, read] : std::vector<Case>{
           {"P 12.9", "12"}, {"P -2147483648", "-2147483648"}, {"P 2147483648", "5"}}) {
    CFileContext input(line);
    std::int32_t number = 5;
    EXPECT_TRUE(input.Exchange("P", number));
    EXPECT_EQ(std::to_string(number), read);
  }
}

}  // namespace
}  // namespace zando
