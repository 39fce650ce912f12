#include "formats/three_dm_writer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/file_io.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace zando {
namespace {

/// What follows the indices of every polygon.
constexpr std::string_view kTail = "0\r\n1\r\n0 0 0\r\n0 0 0\r\n0 0 0\r\n\r\n";

/// Equal vertices have equal hashes: adding 0 makes a negative zero a positive one.
struct VertexHash {
  std::size_t operator()(const Vector& v) const {
    std::uint64_t hash = 0;
    for (const double coordinate : {v.x, v.y, v.z}) {
      constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
      hash = (std::rotl(hash, 25) ^ std::bit_cast<std::uint64_t>(coordinate + 0.0)) * kOdd;
      hash ^= hash >> 32;
    }
    return static_cast<std::size_t>(hash);
  }
};

/// What is no number equals nothing, and would crowd one place of the table.
bool IsPlace(const Vector& v) { return !std::isnan(v.x) && !std::isnan(v.y) && !std::isnan(v.z); }

/// The distinct vertices, in the order of their first use.
class CVertexTable {
 public:
  /// The index of the vertex.
  std::int32_t Add(const Vector& vertex) {
    const auto next = static_cast<std::int32_t>(vertices_.size());
    const std::int32_t index =
        IsPlace(vertex) ? indices_.try_emplace(vertex, next).first->second : next;
    if (index == next) vertices_.push_back(vertex);
    return index;
  }

  [[nodiscard]] const std::vector<Vector>& Vertices() const { return vertices_; }

 private:
  std::vector<Vector> vertices_;
  std::unordered_map<Vector, std::int32_t, VertexHash> indices_;
};

void EndLine(std::string& text) { text.append(kLineEnd); }

void AppendCount(std::string& text, std::int32_t count) {
  AppendNumber(text, count);
  EndLine(text);
}

/// The name as one line.
void AppendName(std::string& text, std::string_view name) {
  const std::size_t begin = text.size();
  text.append(name);
  std::replace_if(
      text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(),
      [](char c) { return c == '\r' || c == '\n'; }, ' ');
  EndLine(text);
}

/// The two tables of a file, filled polygon by polygon.
class CThreeDmTables {
 public:
  void AddNode(const CBspNode& node) {
    if (node.nValid == 0) return;
    if (node.pBrush == nullptr) {
      ++report.ownerless;
      return;
    }
    ++report.polygons;
    AppendName(polygons_, node.pBrush->Name);
    AppendCount(polygons_, node.polygon.count);
    for (const Vector& vertex : node.polygon.Vertices()) {
      AppendNumber(polygons_, vertices_.Add(vertex));
      polygons_ += ' ';
    }
    EndLine(polygons_);
    polygons_.append(kTail);
  }

  [[nodiscard]] std::string Text() {
    report.vertices = static_cast<std::int32_t>(vertices_.Vertices().size());
    std::string text = "; 3DM Export from ZANDO\r\nVERTICES\r\n";
    AppendCount(text, report.vertices);
    for (const Vector& v : vertices_.Vertices()) {
      AppendNumber(text, v.x, Digits::SixDecimals);
      AppendNumber(text += ' ', v.y, Digits::SixDecimals);
      AppendNumber(text += ' ', v.z, Digits::SixDecimals);
      EndLine(text);
    }
    text += "POLYGONS\r\n";
    AppendCount(text, report.polygons);
    return text += polygons_;
  }

  ThreeDmReport report;

 private:
  CVertexTable vertices_;
  std::string polygons_;
};

}  // namespace

std::string Describe3Dm(const ThreeDmReport& report) {
  std::string text = Counted(report.polygons, "polygon", "polygons") + " with " +
                     Counted(report.vertices, "vertex", "vertices") + " written";
  if (report.ownerless > 0) {
    text += ", " + Counted(report.ownerless, "polygon", "polygons") + " without a brush left out";
  }
  return text;
}

std::string Write3Dm(const CConstructiveBsp& world, ThreeDmReport* report) {
  CThreeDmTables tables;
  WalkBackFrontNode(world.root, [&tables](const CBspNode* node) {
    for (; node != nullptr; node = node->chain) tables.AddNode(*node);
  });
  std::string text = tables.Text();
  if (report != nullptr) *report = tables.report;
  return text;
}

CResult<CReport> Export3Dm(const CConstructiveBsp& world, const std::filesystem::path& path,
                           ThreeDmReport* report) {
  return WriteFileAtomically(path, Write3Dm(world, report));
}

}  // namespace zando
