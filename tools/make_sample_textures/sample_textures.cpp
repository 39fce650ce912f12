#include "sample_textures.h"

#include <algorithm>
#include <cstdlib>

namespace zando::samples {
namespace {

constexpr int kSmall = 64;
constexpr int kLarge = 128;

/// Brighter and darker patches of about `cell` texels.
void Weather(CCanvas& canvas, int amount, int cell, int seed) {
  canvas.Each([&](int x, int y, Texel& texel) {
    texel.shade += (canvas.Clouds(x, y, cell, seed) - 128) * amount / 128;
  });
}

void Fill(CCanvas& canvas, Ramp ramp, int shade) {
  canvas.Paint({0, 0, canvas.Width(), canvas.Height()}, ramp, shade);
}

/// The distance to the middle of a period, 0 there, of a number that repeats.
int FromMiddle(int value, int period) { return std::abs(value % period - period / 2); }

struct Courses {
  int width;   ///< of a brick
  int height;  ///< of a course
  int joint;   ///< rows and columns of mortar
  Ramp ramp;
  int shade;
  int variety;    ///< of shades between bricks
  int roughness;  ///< of their faces
};

void LayBricks(CCanvas& canvas, const Courses& courses, int seed) {
  canvas.Each([&](int x, int y, Texel& texel) {
    const int row = y / courses.height;
    const int shifted = (x + row % 2 * courses.width / 2) % canvas.Width();
    const int column = shifted / courses.width;
    const int localX = shifted % courses.width;
    const int localY = y % courses.height;
    const Area brick{courses.joint / 2, courses.joint / 2, courses.width - (courses.joint + 1) / 2,
                     courses.height - (courses.joint + 1) / 2};
    const int chips = canvas.Hills(x, y, 4, seed + 3) > 200 ? 1 : 0;
    const int depth = brick.Depth(localX, localY) - chips;
    const int rough = canvas.Clouds(x, y, 8, seed + 7);
    if (depth < 0) {
      texel = {Ramp::Stone, 56 + rough / 8, rough / 16};
      return;
    }
    const int own = (Chance(column, row, seed) - 128) * courses.variety / 128;
    texel = {courses.ramp, courses.shade + own,
             24 + 12 * std::min(depth, 2) + rough * courses.roughness / 256};
  });
  canvas.Light(16);
}

Picture Brickwork() {
  CCanvas canvas(kSmall, kSmall);
  LayBricks(canvas, {32, 16, 2, Ramp::Brick, 118, 30, 50}, 11);
  Weather(canvas, 34, 32, 12);
  canvas.Grain(12, 13);
  return canvas.Finish();
}

Picture WallBlocks() {
  CCanvas canvas(kSmall, kSmall);
  LayBricks(canvas, {32, 32, 2, Ramp::Stone, 122, 24, 130}, 21);
  Weather(canvas, 40, 16, 22);
  canvas.Each([&](int x, int y, Texel& texel) {
    if (canvas.Clouds(x, y, 32, 23) > 158) texel.ramp = Ramp::Moss;
  });
  canvas.Grain(14, 24);
  return canvas.Finish();
}

Picture Ashlar() {
  CCanvas canvas(kSmall, kSmall);
  LayBricks(canvas, {64, 32, 2, Ramp::Sandstone, 140, 18, 46}, 31);
  Weather(canvas, 26, 32, 32);
  canvas.Grain(14, 33);
  return canvas.Finish();
}

Picture FlutedStone() {
  CCanvas canvas(kSmall, kSmall);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int across = FromMiddle(x, 16);
    const int flute = across < 7 ? -(49 - across * across) * 3 / 2 : 0;
    const bool band = y < 8 || y >= 56;
    texel = {Ramp::Sandstone, 130, band ? 0 : flute};
    texel.height += canvas.Clouds(x, y, 8, 42) / 9;
  });
  canvas.Raise({0, 0, 64, 8}, 36, 3);
  canvas.Raise({0, 56, 64, 64}, 36, 3);
  for (int x = 8; x < 64; x += 16) {
    canvas.Rivet(x, 4, 3, 24);
    canvas.Rivet(x, 60, 3, 24);
  }
  canvas.Light(20);
  Weather(canvas, 30, 32, 43);
  canvas.Grain(12, 44);
  return canvas.Finish();
}

Picture Rock() {
  CCanvas canvas(kLarge, kLarge);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int bent = canvas.Hills(x, y, 16, 51) / 12;
    const int bentDown = canvas.Hills(x, y, 16, 52) / 12;
    const CCanvas::Shard shard = canvas.ShardAt(x + bent, y + bentDown, 32, 53);
    const int crack = std::min(shard.border, 64);
    const int rough = canvas.Clouds(x, y, 32, 54);
    texel = {canvas.Clouds(x, y, 32, 57) + Chance(x, y, 58) / 8 > 160 ? Ramp::Wood : Ramp::Stone,
             84 + shard.id / 12 + crack / 3, crack * 3 / 4 + rough * 2 / 3};
  });
  canvas.Light(20);
  Weather(canvas, 44, 64, 55);
  canvas.Grain(16, 56);
  return canvas.Finish();
}

Picture Ground() {
  CCanvas canvas(kSmall, kSmall);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int soil = canvas.Clouds(x, y, 16, 61);
    const bool grass = canvas.Clouds(x, y, 32, 62) + Chance(x, y, 63) / 8 > 138;
    texel = {grass ? Ramp::Moss : Ramp::Wood, grass ? 110 : 86, soil / 2};
    if (grass) texel.height += Chance(x, y / 3, 64) / 10;
    const CCanvas::Shard stone = canvas.ShardAt(x, y, 8, 65);
    if (!grass && stone.id > 215 && stone.border > 30) {
      texel = {Ramp::Stone, 120, soil / 2 + std::min(stone.border, 60) / 2};
    }
  });
  canvas.Light(16);
  canvas.Grain(22, 66);
  return canvas.Finish();
}

/// Boards along y, with the grain of wood, nails near their ends.
void LayBoards(CCanvas& canvas, int board, Ramp ramp, int shade, int seed) {
  canvas.Each([&](int x, int y, Texel& texel) {
    const int number = x / board;
    const int bend = canvas.Hills(x, y, 16, seed + 1) / 40;
    const int grain = canvas.Hills(4 * (x + bend), y, 16, seed + 2 + number);
    const int fine = Chance(x, y / 8 + Chance(x, 0, seed), seed + 3);
    const int edge = std::min(x % board, board - 1 - x % board);
    texel = {ramp, shade + (Chance(number, 0, seed) - 128) / 6 + (grain - 128) / 4 + fine / 14,
             14 * std::min(edge, 2)};
    if (edge == 0) texel.shade -= 48;
  });
}

Picture Planks() {
  CCanvas canvas(kSmall, kSmall);
  LayBoards(canvas, 16, Ramp::Wood, 102, 71);
  for (int x = 8; x < kSmall; x += 16) {
    const int end = x / 16 % 2 * 32;
    canvas.Paint({x - 8, end, x + 8, end + 1}, Ramp::Wood, 20);
    for (const int y : {end + 4, end + 60}) {
      canvas.Rivet(x - 4, y, 1, 30);
      canvas.Rivet(x + 3, y, 1, 30);
    }
  }
  canvas.Light(16);
  canvas.Grain(8, 74);
  return canvas.Finish();
}

Picture Carpet() {
  CCanvas canvas(kSmall, kSmall);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int lozenge = FromMiddle(x, 32) + FromMiddle(y, 32);
    const bool thread = (x + y) % 2 == 0;
    texel = {Ramp::Cloth, thread ? 108 : 84, 0};
    if (lozenge == 14 || lozenge == 15) texel = {Ramp::Gold, thread ? 136 : 104, 0};
    if (lozenge < 4) texel = {Ramp::Gold, thread ? 150 : 118, 0};
    if (lozenge >= 6 && lozenge <= 8) texel.shade -= 36;
    if (lozenge > 24) texel = {Ramp::Water, thread ? 96 : 72, 0};
  });
  Weather(canvas, 22, 16, 81);
  canvas.Grain(18, 82);
  return canvas.Finish();
}

Picture FloorTiles() {
  CCanvas canvas(kSmall, kSmall);
  canvas.Each([&](int x, int y, Texel& texel) {
    const bool dark = (x / 32 + y / 32) % 2 == 0;
    const int vein = std::abs(canvas.Clouds(x, y, 32, 91 + (dark ? 1 : 0)) - 128);
    texel = {dark ? Ramp::Steel : Ramp::Stone, dark ? 78 : 142, 0};
    if (vein < 6) texel.shade += dark ? 40 : -34;
  });
  for (int i = 0; i < 4; ++i) {
    const int left = i % 2 * 32;
    const int top = i / 2 * 32;
    canvas.Raise({left, top, left + 31, top + 31}, 36, 2);
  }
  canvas.Light(18);
  Weather(canvas, 28, 16, 93);
  canvas.Grain(10, 94);
  return canvas.Finish();
}

/// Rust on steel, where it has gathered.
void Rust(CCanvas& canvas, int threshold, int seed) {
  canvas.Each([&](int x, int y, Texel& texel) {
    if (texel.ramp != Ramp::Steel) return;
    const int rust = canvas.Clouds(x, y, 32, seed) + Chance(x, y, seed + 1) / 10;
    if (rust > threshold) texel = {Ramp::Rust, texel.shade * 7 / 8, texel.height};
  });
}

/// A plate with a bevel and a rivet in each corner.
void BoltPlate(CCanvas& canvas, const Area& area, int height) {
  canvas.Raise(area, height, 2);
  for (const int x : {area.left + 4, area.right - 5}) {
    for (const int y : {area.top + 4, area.bottom - 5}) canvas.Rivet(x, y, 2, 34);
  }
}

Picture MetalPlates() {
  CCanvas canvas(kSmall, kSmall);
  Fill(canvas, Ramp::Steel, 104);
  Weather(canvas, 44, 32, 101);
  Rust(canvas, 152, 102);
  for (const Area& plate :
       {Area{0, 0, 40, 32}, Area{40, 0, 64, 32}, Area{0, 32, 24, 64}, Area{24, 32, 64, 64}}) {
    BoltPlate(canvas, plate, 30);
  }
  canvas.Light(18);
  canvas.Grain(12, 104);
  return canvas.Finish();
}

Picture HazardFrame() {
  CCanvas canvas(kSmall, kSmall);
  Fill(canvas, Ramp::Steel, 100);
  Weather(canvas, 36, 16, 111);
  canvas.Each([](int x, int y, Texel& texel) {
    if (y < 24 || y >= 40) return;
    const bool yellow = (x + y) % 32 < 16;
    texel = {yellow ? Ramp::Gold : Ramp::Grey, yellow ? 158 : 34, 0};
  });
  Rust(canvas, 166, 112);
  canvas.Raise({0, 22, 64, 42}, -28, 2);
  BoltPlate(canvas, {0, 0, 32, 22}, 28);
  BoltPlate(canvas, {32, 0, 64, 22}, 28);
  BoltPlate(canvas, {0, 42, 32, 64}, 28);
  BoltPlate(canvas, {32, 42, 64, 64}, 28);
  canvas.Light(18);
  canvas.Grain(12, 114);
  return canvas.Finish();
}

/// A glowing field, brightest in its middle.
void Glow(CCanvas& canvas, const Area& area, Ramp ramp) {
  canvas.Paint(area, ramp, 110);
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      canvas.At(x, y).shade += 50 * std::min(area.Depth(x, y), 3);
    }
  }
}

Picture Conduits() {
  CCanvas canvas(kSmall, kLarge);
  Fill(canvas, Ramp::Steel, 70);
  Weather(canvas, 30, 32, 121);
  canvas.Each([](int x, int y, Texel& texel) {
    if (x < 8 || x >= 56) return;
    const int across = FromMiddle(x - 8, 16);
    texel.ramp = x < 24 || x >= 40 ? Ramp::Rust : Ramp::Steel;
    texel.shade += 26;
    texel.height = (64 - across * across) * 3 / 2;
    if (y % 32 < 5) texel.height += 16;
  });
  canvas.Raise({0, 0, 8, 128}, 40, 2);
  canvas.Raise({56, 0, 64, 128}, 40, 2);
  for (int y = 8; y < kLarge; y += 16) {
    canvas.Rivet(4, y, 2, 30);
    canvas.Rivet(60, y, 2, 30);
  }
  canvas.Raise({4, 48, 60, 80}, 70, 3);
  canvas.Raise({20, 56, 44, 72}, -60, 2);
  canvas.Light(16);
  canvas.Paint({22, 58, 42, 70}, Ramp::Grey, 10);
  Glow(canvas, {23, 59, 41, 63}, Ramp::GreenLamp);
  Glow(canvas, {23, 65, 41, 69}, Ramp::Fire);
  canvas.Grain(10, 124);
  return canvas.Finish();
}

Picture TechPanel() {
  CCanvas canvas(kSmall, kLarge);
  Fill(canvas, Ramp::Wood, 104);
  canvas.Paint({6, 40, 58, 90}, Ramp::Steel, 96);
  Weather(canvas, 40, 32, 131);
  Rust(canvas, 178, 132);
  canvas.Raise({0, 0, 64, 36}, 34, 2);
  canvas.Raise({0, 36, 64, 96}, 34, 2);
  canvas.Raise({5, 41, 59, 91}, -44, 2);
  canvas.Raise({9, 45, 34, 87}, 40, 2);
  canvas.Raise({0, 96, 32, 128}, 34, 2);
  canvas.Raise({32, 96, 64, 128}, 34, 2);
  for (int y = 50; y < 84; y += 6) canvas.Raise({13, y, 30, y + 4}, -44, 2);
  for (int y = 48; y < 86; y += 13) canvas.Raise({38, y, 55, y + 10}, 36, 2);
  for (int x = 6; x < kSmall; x += 17) {
    canvas.Rivet(x, 6, 2, 32);
    canvas.Rivet(x, 29, 2, 32);
  }
  for (const int x : {6, 25, 38, 57}) {
    canvas.Rivet(x, 102, 2, 32);
    canvas.Rivet(x, 121, 2, 32);
  }
  canvas.Raise({12, 12, 52, 24}, -40, 2);
  canvas.Light(16);
  canvas.Paint({14, 14, 50, 22}, Ramp::Grey, 12);
  for (int x = 16; x < 48; x += 8) Glow(canvas, {x, 15, x + 7, 21}, Ramp::BlueLamp);
  canvas.Grain(10, 134);
  return canvas.Finish();
}

Picture Gate() {
  CCanvas canvas(kLarge, kLarge);
  LayBoards(canvas, 16, Ramp::Wood, 92, 141);
  for (const int top : {8, 56, 104}) {
    canvas.Paint({0, top, kLarge, top + 16}, Ramp::Steel, 78);
    canvas.Each([&](int, int y, Texel& texel) {
      if (y >= top && y < top + 16) texel.height = 0;
    });
    canvas.Raise({0, top, kLarge, top + 16}, 60, 3);
    for (int x = 8; x < kLarge; x += 16) canvas.Rivet(x, top + 8, 3, 50);
  }
  canvas.Paint({0, 0, 4, kLarge}, Ramp::Steel, 60);
  canvas.Paint({124, 0, kLarge, kLarge}, Ramp::Steel, 60);
  canvas.Raise({0, 0, 4, kLarge}, 30, 2);
  canvas.Raise({124, 0, kLarge, kLarge}, 30, 2);
  Rust(canvas, 172, 142);
  canvas.Light(16);
  Weather(canvas, 30, 64, 143);
  canvas.Grain(10, 144);
  return canvas.Finish();
}

/// The drifting clouds, with holes of index 0, in the left half; the far sky in the right one.
Picture Sky() {
  CCanvas canvas(kLarge, kLarge);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int cloud = canvas.Clouds(x + canvas.Hills(x, y, 32, 151) / 10, y, 32, 152);
    const int shade = (cloud - 136) * 2;
    texel = shade > 0 ? Texel{Ramp::Violet, 30 + shade, 0} : Texel{Ramp::Grey, 0, 0};
  });
  const Picture drifting = canvas.Finish();
  canvas.Each([&](int x, int y, Texel& texel) {
    texel = {Ramp::Violet, 22 + canvas.Clouds(x, y, 64, 153) / 3, 0};
    const int star = Chance(x, y, 154);
    if (star == 255 && texel.shade < 66) texel = {Ramp::Grey, 130 + Chance(y, x, 155) / 3, 0};
  });
  canvas.Grain(6, 156);
  const Picture far = canvas.Finish();
  Picture sky{2 * kLarge, kLarge, {}};
  for (auto left = drifting.pixels.begin(), right = far.pixels.begin();
       left != drifting.pixels.end(); left += kLarge, right += kLarge) {
    sky.pixels.insert(sky.pixels.end(), left, left + kLarge);
    sky.pixels.insert(sky.pixels.end(), right, right + kLarge);
  }
  return sky;
}

/// Light that plays on a liquid: bright where waves meet.
Picture Liquid(Ramp ramp, int shade, int seed) {
  CCanvas canvas(kSmall, kSmall);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int bent = x + canvas.Clouds(x, y, 32, seed) / 8;
    const int bentDown = y + canvas.Clouds(x, y, 32, seed + 1) / 8;
    const int wave = std::abs(canvas.Clouds(bent, bentDown, 16, seed + 2) - 128);
    texel = {ramp,
             shade + (canvas.Clouds(x, y, 32, seed + 3) - 128) / 2 + std::max(0, 24 - wave) * 3, 0};
  });
  canvas.Grain(8, seed + 4);
  return canvas.Finish();
}

Picture Water() { return Liquid(Ramp::Water, 84, 161); }

Picture Slime() {
  CCanvas canvas(kSmall, kSmall);
  canvas.Each([&](int x, int y, Texel& texel) {
    const int bent = x + canvas.Clouds(x, y, 32, 171) / 8;
    const CCanvas::Shard bubble = canvas.ShardAt(bent, y, 16, 172);
    texel = {Ramp::Slime, 70 + canvas.Clouds(bent, y, 16, 173) / 3,
             std::min(bubble.border, 80) / 2 + canvas.Clouds(x, y, 16, 174) / 6};
  });
  canvas.Light(18);
  canvas.Grain(10, 175);
  return canvas.Finish();
}

Picture LightPanel() {
  CCanvas canvas(kSmall, kSmall);
  Fill(canvas, Ramp::Steel, 96);
  Weather(canvas, 30, 16, 181);
  BoltPlate(canvas, {0, 0, 64, 64}, 36);
  canvas.Raise({8, 8, 56, 56}, -50, 3);
  canvas.Light(16);
  canvas.Grain(10, 182);
  canvas.Paint({11, 11, 53, 53}, Ramp::Grey, 24);
  for (int i = 0; i < 9; ++i) {
    const int left = 12 + i % 3 * 14;
    const int top = 12 + i / 3 * 14;
    Glow(canvas, {left, top, left + 12, top + 12}, Ramp::Fire);
  }
  return canvas.Finish();
}

Picture Crate() {
  CCanvas canvas(kSmall, kSmall);
  LayBoards(canvas, 16, Ramp::Wood, 96, 191);
  canvas.Each([&](int x, int y, Texel& texel) {
    const bool frame = Area{9, 9, 55, 55}.Depth(x, y) < 0;
    const int brace = std::abs(x + y - 63);
    if (!frame && brace > 7) return;
    const int along = frame && (y < 9 || y >= 55) ? x : y;
    const int depth =
        frame ? std::min(Area{0, 0, 64, 64}.Depth(x, y), -1 - Area{9, 9, 55, 55}.Depth(x, y))
              : 7 - brace;
    texel = {Ramp::Wood, 116 + (Chance(frame ? 0 : x + y, along / 6, 192) - 128) / 8,
             40 + 14 * std::min(depth, 2)};
  });
  for (const int x : {4, 59}) {
    for (const int y : {4, 20, 43, 59}) {
      canvas.Rivet(x, y, 1, 40);
      canvas.Rivet(y, x, 1, 40);
    }
  }
  canvas.Light(14);
  Weather(canvas, 30, 32, 193);
  canvas.Grain(10, 194);
  return canvas.Finish();
}

Picture Trim() {
  CCanvas canvas(kSmall, kSmall);
  Fill(canvas, Ramp::Steel, 84);
  canvas.Paint({0, 22, 64, 42}, Ramp::Gold, 110);
  canvas.Raise({-64, 2, 128, 20}, 30, 3);
  canvas.Raise({-64, 44, 128, 62}, 30, 3);
  canvas.Raise({-64, 22, 128, 42}, 20, 2);
  for (int x = 8; x < kSmall; x += 16) {
    canvas.Rivet(x, 32, 6, 130);
    canvas.Rivet(x, 11, 2, 30);
    canvas.Rivet(x, 53, 2, 30);
  }
  canvas.Light(14);
  Weather(canvas, 40, 32, 201);
  canvas.Grain(12, 202);
  return canvas.Finish();
}

Picture Ceiling() {
  CCanvas canvas(kSmall, kSmall);
  Fill(canvas, Ramp::Wood, 84);
  canvas.Paint({10, 10, 54, 54}, Ramp::Stone, 96);
  canvas.Raise({0, 0, 64, 64}, 30, 2);
  canvas.Raise({8, 8, 56, 56}, -60, 5);
  canvas.Raise({18, 18, 46, 46}, 40, 4);
  canvas.Rivet(32, 32, 6, 110);
  canvas.Light(18);
  Weather(canvas, 34, 32, 211);
  canvas.Grain(12, 212);
  return canvas.Finish();
}

}  // namespace

const std::vector<SampleTexture>& SampleTextures() {
  static const std::vector<SampleTexture> textures{
      {"tech05_1", TechPanel},   {"tech04_1", Conduits},   {"tech01_1", HazardFrame},
      {"metal4_5", MetalPlates}, {"light1_1", LightPanel}, {"trim1_1", Trim},
      {"ceil1_1", Ceiling},      {"city2_1", Brickwork},   {"city2_5", WallBlocks},
      {"city4_2", Ashlar},       {"city6_8", FlutedStone}, {"floor01_5", FloorTiles},
      {"carpet1", Carpet},       {"wood1_1", Planks},      {"crate1_1", Crate},
      {"door02_1", Gate},        {"rock4_1", Rock},        {"ground1_6", Ground},
      {"*water1", Water},        {"*slime1", Slime},       {"sky4", Sky}};
  return textures;
}

}  // namespace zando::samples
