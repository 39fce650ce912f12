#include "document/document_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "platform/file_io.h"
#include "support/edit_level.h"
#include "support/small_stack.h"

namespace zando::testing {
namespace {

namespace fs = std::filesystem;

std::string Lines(std::string text) {
  std::ranges::replace(text, '|', '\n');
  return text;
}

/// A level with a bar behind each line.
const std::string kLevel = Lines(
    "CZandoBrush|TranT 1|Name tech05_1|BGroup -1|BFlags 1|BEnt 0|BBid 7|Pos 0 0 0|Rot 0 0 0|"
    "Scl 1 1 1|Shr 0 0 0|NumfBPolys 0|End CZandoBrush|Class CBrushList|BrushCount 2|CZandoBrush|"
    "TranT 0|Name a b|BGroup 0|BFlags 1|BEnt 0|BBid 0|Pos 1 2 3|Rot 5 6 7|Scl 2 2 2|Shr 0.5 0 0|"
    "NumfBPolys 1|CZandoPoly|NumVrts 3|V 0 0 0|V 64 0 0|V 64 -0.123457 1.23457e+06|"
    "End CZandoPoly|End CZandoBrush|CZandoBrush|TranT 0|Name *water|BGroup -1|BFlags 5|BEnt 1|"
    "BBid 1|Pos 0 0 0|Rot 0 0 0|Scl 1 1 1|Shr 0 0 0|NumfBPolys 0|"
    "BMatrix 0 0 1 8 0 1 0 0 -1 0 0 0 0 0 0 1|End CZandoBrush|End Class CBrushList|"
    "CConstructiveBsp1|CoCount 2|CZandoPoly|NumVrts 1|V 1 2 3|End CZandoPoly|nValid 1|nBid 0|"
    "nPolNum 5|CZandoPoly|NumVrts 0|End CZandoPoly|nValid 0|nBid 1|nPolNum 1|nB 1|CoCount 1|"
    "CZandoPoly|NumVrts 0|End CZandoPoly|nValid 1|nBid -1|nPolNum 3|nB 0|nF 0|nF 0|"
    "End CConstructiveBsp|Class CEntList|EntCount 2|CurEnt 1|CEntity|eStyle 0|eOrigin 8 16 -24|"
    "eFlags 2|eGroup 0|ePairCount 2|K classname|V light|K origin|V 8 16 -24|End CEntity|CEntity|"
    "eStyle 1|eOrigin 0 0 0|eFlags 3|eGroup -1|ePairCount 1|K classname|V func_door|End CEntity|"
    "End CEntList|Class CGroupList|CurGroup 0|GroupCount 1|CBGroup|gVis 0|gName Unnamed Group|"
    "gCol 255|End CBGroup|End CGroupList|");

const std::string kEndOfBrush = "End CZandoBrush\n";
const std::string kEndOfFace = "End CZandoPoly\n" + kEndOfBrush;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string WithCrLf(const std::string& text) {
  std::string result;
  for (const char c : text) result += c == '\n' ? "\r\n" : std::string(1, c);
  return result;
}

/// An edit of the file, and what is told of it.
struct FileEdit {
  std::string from, to, told;
};

/// The file of the level that the text gives, or the reason why there is none.
std::string ReadAndWrite(const std::string& text) {
  const auto loaded = ReadDocument(text);
  std::string written = loaded ? WriteDocument(*loaded->document) : loaded.Error();
  std::erase(written, '\r');
  return written;
}

TEST(DocumentFile, ALevelIsReadWithWhatFollowsFromItAndWrittenInTheSameBytes) {
  const auto loaded = ReadDocument(kLevel);
  ASSERT_TRUE(loaded) << loaded.Error();
  const Level& level = loaded->document->GetLevel();
  EXPECT_EQ(WriteDocument(*loaded->document), WithCrLf(kLevel));
  EXPECT_EQ(ReadAndWrite(WithCrLf(kLevel)), kLevel);

  const CZandoBrush& brush = *level.BrushList.Head();
  EXPECT_EQ(brush.Own().WorkPos, (Vector{1.0, 2.0, 3.0}));
  EXPECT_EQ(brush.Own().WorkRot, (Vector{5.0, 6.0, 7.0}));
  EXPECT_EQ(brush.BMatrix().m[1][3], 2.0) << "placed by Pos without a BMatrix line";
  ASSERT_NE(level.World.root, nullptr);
  EXPECT_EQ(level.World.root->pBrush, &brush);
  EXPECT_EQ(level.World.root->chain->pBrush, brush.Next);
  EXPECT_EQ(level.Entities[0].WorkOrigin, (Vector{8.0, 16.0, -24.0}));
  EXPECT_EQ(level.NextBrushId, 2);
  EXPECT_FALSE(loaded->document->IsModified());
}

TEST(DocumentFile, ToleratesWhatALevelCanDoWithout) {
  // An edit of the file, and that of what is written after reading it.
  using Case = std::array<std::string, 4>;
  const std::string scale = "Rot 5 6 7\nScl 2 2 2\n";
  const std::string pairs =
      "eStyle 0\neOrigin 8 16 -24\neFlags 2\neGroup 0\n"
      "ePairCount 2\nK classname\nV light\nK origin\nV 8 16 -24\n";
  const std::string onePair =
      "eStyle 1\neOrigin 8 16 -24\neFlags 2\neGroup 0\n"
      "ePairCount 1\nK classname\nV 8 16 -24\n";
  for (const auto& [from, to, becomes, instead] :
       std::vector<Case>{{"Pos 1 2 3", "\t \vposition\t1 2 3 \f", "", ""},
                         {"Pos 1 2 3", "Pos 1 x 3", "Pos 1 2 3", "Pos 1 0 0"},
                         {"TranT 1\n", "", "TranT 1", "TranT 0"},
                         {scale, "Rot 5 6 7\n\n \nunknown line\n", scale, "Rot 5 6 7\nScl 1 1 1\n"},
                         {scale, "Scl 2 2 2\nRot 5 6 7\n", scale, "Rot 5 6 7\nScl 1 1 1\n"},
                         {"V 64 0 0\n", "", "V 64 0 0\nV 64 -0.123457 1.23457e+06\n",
                          "V 64 -0.123457 1.23457e+06\nV 0 0 0\n"},
                         {"nBid 1\n", "nBid 2\n", "nBid 1\n", "nBid -1\n"},
                         {"CurEnt 1", "CurEnt 2", "CurEnt 1", "CurEnt -1"},
                         {"CurGroup 0", "CurGroup 1", "CurGroup 0", "CurGroup -1"},
                         {"eOrigin 8 16 -24", "eOrigin 1 1 1", "", ""},
                         {"ePairCount 2", "ePairCount 3", "", ""},
                         {"V light\n", "", pairs, onePair},
                         {"gCol 255", "gCol -1", "gCol 255", "gCol -1"}}) {
    EXPECT_EQ(ReadAndWrite(Replaced(kLevel, from, to)), Replaced(kLevel, becomes, instead))
        << from << " -> " << to;
  }
  const auto shortest = ReadDocument("czandobrush");
  ASSERT_TRUE(shortest);
  EXPECT_EQ(shortest->document->GetLevel().BrushList.BrushCount(), 0);
}

TEST(DocumentFile, KeepsSurfacesAndKeysOfTheWorldInLinesOfTheirOwn) {
  const std::string text =
      Replaced(kLevel, kEndOfFace,
               "End CZandoPoly\nFace 0 0.1 -8 45.5 1e-05 0 *a b\n" + kEndOfBrush) +
      Lines(
          "Class CWorldspawn|ePairCount 2|K message|V  two  blanks|K sounds|V 4|End CWorldspawn|");
  EXPECT_EQ(ReadAndWrite(text), text);
  const auto loaded = ReadDocument(text);
  ASSERT_TRUE(loaded);
  const Level& level = loaded->document->GetLevel();
  EXPECT_EQ(level.BrushList[0].Faces[0].surface,
            (FaceSurface{"*a b", 0.1, -8.0, 45.5, 1e-05, 0.0}));
  EXPECT_EQ(level.WorldKeys[1], (EntityPair{"sounds", "4"}));
  EXPECT_EQ(Level(level), level);
}

TEST(DocumentFile, TellsWhatIsWrongWithAFileThatItReads) {
  const std::string nul(1, '\0');
  const std::string lost = "brush 1 belongs to entity 1, and there is none;";
  const std::string follows = " where it should follow line ";
  const std::string faceTakes = ": \"Face\" takes an index, numbers and a name;";
  for (const auto& test : std::vector<FileEdit>{
           {"TranT 1", "unknown line\ntrant 1 ", ""},
           {"BBid 7\n", "", ""},
           {"V 64 0 0", "V 64 1e-300 0", ""},
           {"nBid 1\n", "nBid 9\n", ""},
           {"End CGroupList\n", "more\nEnd CGroupList\nKeys", ""},
           {"End CGroupList\n", "", "no line \"End CGroupList\"" + follows + "108;"},
           {"End CZandoBrush\nEnd Class", "End Class",
            "no line \"End CZandoBrush\"" + follows + "47;"},
           {"End CEntity\nEnd CEntList", "End CEntList",
            "no line \"End CEntity\"" + follows + "98;"},
           {"End CEntList\n", "", "no line \"End CEntList\"" + follows + "99;"},
           {"End Class CBrushList\n", "", "no line \"End Class CBrushList\"" + follows + "48;"},
           {"nF 0\nEnd CConstructiveBsp\n", "",
            "no line \"nF\"" + follows + "74;no line \"End CConstructiveBsp\"" + follows +
                "74;no line \"Class CEntList\"" + follows + "75;" + lost},
           {"EntCount 2", "EntCount 3", "no line \"CEntity\"" + follows + "99;"},
           {"EntCount 2", "EntCount 1",
            "line 90: more \"CEntity\" follow than were announced;" + lost},
           {"BrushCount 2", "BrushCount 1",
            "line 34: more \"CZandoBrush\" follow than were announced;"},
           {"NumVrts 3", "NumVrts 4", "line 32: of 4 that NumVrts announced, 3 came;"},
           {"K classname\nV func_door\n", "K classname\n",
            "line 97: of 1 that ePairCount announced, 0 came;"},
           {"Name a b", "Name a" + nul + nul, "line 18: a NUL byte, of 2 in the file;"},
           {"V 64 0 0", "V 64 inf 0", "line 31: a number is not finite, or out of range;"},
           {kEndOfFace, "End CZandoPoly\nFace 1 0 0 0 1 1 a\nface -1 0 0 0 1 1 a\n" + kEndOfBrush,
            "a brush has no face 1;a brush has no face -1;"},
           {kEndOfFace, "End CZandoPoly\nFace 0 0 0 nan 1 1 a\nFace 0 0 0 0 1 1\n" + kEndOfBrush,
            "line 34" + faceTakes + "line 35" + faceTakes},
           {"End CGroupList\n", "End CGroupList\nClass CWorldspawn\n",
            "no line \"End CWorldspawn\"" + follows + "110;"},
           {"Rot 5 6 7", "Rot 5 6 1e999", "line 24: a number is not finite, or out of range;"},
           {"BEnt 1", "BEnt 2", "brush 1 belongs to entity 2, and there is none;"}}) {
    const auto loaded = ReadDocument(Replaced(kLevel, test.from, test.to));
    ASSERT_TRUE(loaded) << test.to << loaded.Error();
    std::string warnings;
    for (const std::string& line : loaded->warnings.Lines()) warnings += line + ';';
    EXPECT_EQ(warnings, test.told) << test.from << " -> " << test.to;
  }
  const auto loaded = ReadDocument(Replaced(kLevel, "EntCount 2", "EntCount 17"));
  ASSERT_TRUE(loaded) << loaded.Error();
  EXPECT_EQ(loaded->warnings.Lines().size(), 11U);
  EXPECT_EQ(loaded->warnings.Lines().back(), "and 5 more");
}

TEST(DocumentFile, RefusesAFileWithoutALineThatMustBeThere) {
  const std::string count = " is negative or larger than the rest of the file can hold";
  for (const FileEdit& test : std::vector<FileEdit>{
           {kLevel, "{\n\"classname\" \"worldspawn\"\n}", "no line \"CZandoBrush\""},
           {"BrushCount 2\n", "", "no line \"BrushCount\" where it should follow line 14"},
           {"BrushCount 2", "BrushCount 3",
            "no line \"CZandoBrush\" where it should follow line 48"},
           {"BrushCount 2", "BrushCount -1", "line 15: BrushCount" + count},
           {"BrushCount 2", "BrushCount 99999999999", "line 15: BrushCount" + count},
           {"NumfBPolys 1", "NumfBPolys 2147483647", "line 27: NumfBPolys" + count},
           {"NumVrts 3", "NumVrts 33", "line 29: a polygon has more than 32 vertices"},
           {"CoCount 1", "CoCount 2147483647", "line 66: CoCount" + count},
           {"ePairCount 1", "ePairCount 2147483647", "line 96: ePairCount" + count},
           {"GroupCount 1", "GroupCount 100", "line 103: GroupCount" + count}}) {
    EXPECT_EQ(ReadAndWrite(Replaced(kLevel, test.from, test.to)), "not a level file: " + test.told)
        << test.from << " -> " << test.to;
  }
}

TEST(DocumentFile, CarriesOddTextsThrough) {
  CZANDODoc document;
  Level& level = Edit(document);
  std::string every;
  for (int byte = 1; byte < 256; ++byte) every += static_cast<char>(byte);
  for (const std::string& text : {std::string("End CEntity"), std::string("  two  blanks"),
                                  std::string("nul\0inside", 10), '"' + every}) {
    level.Entities.emplace_back().AddPair("K " + text, text);
  }
  const auto loaded = ReadDocument(WriteDocument(document));
  ASSERT_TRUE(loaded) << loaded.Error();
  for (std::size_t i = 0; i < level.Entities.size(); ++i) {
    EntityPair expected = level.Entities[i].Pairs[0];
    for (std::string* text : {&expected.key, &expected.value}) {
      std::replace(text->begin(), text->end(), '\r', ' ');
      std::replace(text->begin(), text->end(), '\n', ' ');
    }
    EXPECT_EQ(loaded->document->GetLevel().Entities[i].Pairs, std::vector{expected});
  }
}

TEST(DocumentFile, AFileThatWasCutOffAnywhereIsToldOf) {
  for (std::size_t length = 0; length + 1 < kLevel.size(); ++length) {
    const auto loaded = ReadDocument(std::string_view(kLevel).substr(0, length));
    EXPECT_TRUE(loaded ? loaded->IsDamaged() : !loaded.Error().empty()) << length;
  }
}

TEST(DocumentFile, HandlesATreeOfAnyDepthOnASmallStack) {
  constexpr int kNodes = 100000;
  CZANDODoc document;
  Level& level = Edit(document);
  CBspNode** next = &level.World.root;
  for (int i = 0; i < kNodes; ++i) {
    *next = level.World.NewNode();
    (*next)->TakePolygon(level.WorkingBrush.Polys()[0]);
    next = i % 2 == 0 ? &(*next)->back : &(*next)->front;
  }
  std::string written;
  std::string again;
  RunOnSmallStack([&] {
    written = WriteDocument(document);
    const auto loaded = ReadDocument(written);
    if (loaded) again = WriteDocument(*loaded->document);
  });
  EXPECT_GT(written.size(), kNodes * std::size_t{100});
  EXPECT_TRUE(again == written);
}

TEST(DocumentFile, ASaveFollowsLinksAndOneThatFailsLosesNothing) {
  const fs::path folder =
      fs::temp_directory_path() / ("document_file_" + std::to_string(::getpid()));
  fs::create_directories(folder);
  EXPECT_EQ(WriteFileAtomically(folder / "level.3dz", "old").Error(), "");
  fs::create_symlink("level.3dz", folder / "link");
  fs::create_symlink("loop", folder / "loop");
  CZANDODoc level;
  level.SetModifiedFlag();
  EXPECT_EQ(SaveDocumentFile(level, folder).Error(), "Is a directory");
  EXPECT_EQ(SaveDocumentFile(level, "/dev/null").Error(), "not an ordinary file");
  EXPECT_NE(SaveDocumentFile(level, folder / "loop").Error(), "");
  EXPECT_TRUE(level.IsModified());
  EXPECT_EQ(level.GetPathName(), fs::path());
  EXPECT_EQ(SaveDocumentFile(level, folder / "link").Error(), "");
  EXPECT_FALSE(level.IsModified());
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(ReadWholeFile(folder / "level.3dz").ValueOr(""), WriteDocument(level));
  EXPECT_EQ(fs::remove_all(folder), 4U) << "a temporary file was left";
}

}  // namespace
}  // namespace zando::testing
