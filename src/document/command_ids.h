#pragma once

#include <cstdint>

namespace zando {

/// Commands whose ids double as state of a document: the tool in use and the show filter.
inline constexpr std::int32_t ID_TOOL_CAMERA = 32776;
inline constexpr std::int32_t ID_TOOL_MOVE_ROTATE_BRUSH = 32784;
inline constexpr std::int32_t ID_TOOL_SCALE_BRUSH = 32785;
inline constexpr std::int32_t ID_TOOL_SHEAR_BRUSH = 32814;
inline constexpr std::int32_t ID_TOOL_MOVE_SELECT_ENTITY = 32823;
inline constexpr std::int32_t ID_TOOL_SELECT_GROUP = 32835;
inline constexpr std::int32_t ID_TOOL_SELECT_BRUSH = 32849;

inline constexpr std::int32_t ID_SHOW_ALL_BRUSHES = 32836;
inline constexpr std::int32_t ID_SHOW_VISIBLE_GROUPS = 32837;
inline constexpr std::int32_t ID_SHOW_CURRENT_GROUP = 32838;

}  // namespace zando
