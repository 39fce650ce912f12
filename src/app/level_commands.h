#pragma once

#include "document/editor_settings.h"
#include "document/zando_doc.h"
#include "platform/desktop.h"

namespace zando {

/// What the commands of a level work on.
struct ActiveLevel {
  CZANDODoc& document;
  CEditorSettings& settings;
  CDesktop& desktop;
};

/// The commands of a level that ask something first, or say something afterwards.
void EditAttributes(ActiveLevel& level);
void EditEntities(ActiveLevel& level);
void ManageBsp(ActiveLevel& level);
void RebuildQuickly(ActiveLevel& level);
void EditGrid(ActiveLevel& level);
void EditSettings(ActiveLevel& level);
void EditGroups(ActiveLevel& level);
void CreateGroup(ActiveLevel& level);
void ExportTo3Dm(ActiveLevel& level);
void ExportToMap(ActiveLevel& level);
void ImportFromMap(ActiveLevel& level);

}  // namespace zando
