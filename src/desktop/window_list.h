#pragma once

#include <QMenu>
#include <QString>
#include <functional>
#include <vector>

namespace zando {

/// The open windows at the end of a menu, in order, with a digit to choose each of the first nine.
class CWindowList {
 public:
  struct Line {
    QString name;
    bool active;

    friend bool operator==(const Line&, const Line&) = default;
  };

  /// `activate` is called with the index of the line that the user chooses.
  explicit CWindowList(std::function<void(std::size_t)> activate);

  /// Shows them in this menu, which must outlive the list's last Show.
  void Attach(QMenu& menu) { menu_ = &menu; }
  void Show(const std::vector<Line>& lines);

 private:
  void AddLine(const Line& line);

  std::function<void(std::size_t)> activate_;
  QMenu* menu_ = nullptr;
  std::vector<Line> lines_;
  std::vector<QAction*> actions_;  ///< of the lines, in the menu
};

}  // namespace zando
