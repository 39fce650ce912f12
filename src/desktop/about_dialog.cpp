#include "desktop/about_dialog.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace zando {

void ShowAboutDialog(QWidget* parent) {
  QDialog dialog(parent);
  dialog.setWindowTitle(QStringLiteral("About ZANDO"));

  auto* picture = new QLabel;
  picture->setPixmap(
      QIcon(QStringLiteral(":/icons/zando.svg")).pixmap({48, 48}, dialog.devicePixelRatioF()));
  auto* ok = new QPushButton(QStringLiteral("OK"));
  ok->setDefault(true);
  QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);

  auto* layout = new QHBoxLayout(&dialog);
  layout->setSpacing(16);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(picture);
  layout->addWidget(new QLabel(QStringLiteral("ZANDO Version 0.7b")));
  layout->addWidget(ok, 0, Qt::AlignTop);
  dialog.exec();
}

}  // namespace zando
