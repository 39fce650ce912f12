#pragma once

class QWidget;

namespace zando {

/// Says which program this is, until OK is pressed.
void ShowAboutDialog(QWidget* parent);

}  // namespace zando
