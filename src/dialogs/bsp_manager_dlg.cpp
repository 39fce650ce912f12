#include "dialogs/bsp_manager_dlg.h"

#include "csg/csg_world.h"
#include "platform/progress.h"

namespace zando {
namespace {

constexpr ControlId kRebuildQuick = 1035;
constexpr ControlId kRebuildOptimal = 1036;
constexpr ControlId kInserted = 1037;
constexpr ControlId kSplits = 1038;
constexpr ControlId kVisible = 1039;
constexpr ControlId kNodes = 1040;
constexpr ControlId kCoplanar = 1041;
constexpr ControlId kProgress = 1046;
constexpr ControlId kBuildWater = 1077;

constexpr std::int32_t kFull = 100;

}  // namespace

/// The bar of the dialog. While it moves, the window is painted and says what the user does.
class CBspManagerDlg::CBar : public CPercentProgress {
 public:
  explicit CBar(CBspManagerDlg& dialog) : dialog_(dialog) {}

 protected:
  bool Advance(std::int32_t percent) override {
    dialog_.Form().SetProgressPos(kProgress, percent);
    dialog_.Form().HandleEvents();
    return !dialog_.cancelled_;
  }

 private:
  CBspManagerDlg& dialog_;
};

void CBspManagerDlg::DoDataExchange(CDataExchange& exchange) {
  exchange.Text(kCoplanar, counts_.coplanar);
  exchange.Text(kNodes, counts_.nodes);
  exchange.Text(kInserted, counts_.inserted);
  exchange.Text(kSplits, counts_.splits);
  exchange.Text(kVisible, counts_.visible);
  exchange.Check(kBuildWater, buildWater_);
}

void CBspManagerDlg::OnInitDialog() {
  Form().Show(kProgress, false);
  Form().SetProgressRange(kProgress, 0, kFull);
}

void CBspManagerDlg::OnButton(ControlId id) {
  if (running_) return;
  if (id == kRebuildQuick) Rebuild(RebuildKind::Quick);
  if (id == kRebuildOptimal) Rebuild(RebuildKind::Optimal);
}

void CBspManagerDlg::Rebuild(RebuildKind kind) {
  if (!UpdateData(CDataExchange::Direction::FromControls)) return;
  Form().SetProgressPos(kProgress, 0);
  Form().Show(kProgress, true);
  EnableButtons(false);
  running_ = true;
  cancelled_ = false;
  CBar bar(*this);
  bool done = false;
  try {
    done = RebuildWorld(document_, kind,
                        buildWater_ != 0 ? WaterBrushes::Build : WaterBrushes::Skip, &bar);
  } catch (...) {
    running_ = false;
    EnableButtons(true);
    throw;
  }
  running_ = false;
  EnableButtons(true);
  if (done) Form().SetProgressPos(kProgress, kFull);
  Form().Close(done ? IDOK : IDCANCEL);
}

/// Cancel stays: it ends the rebuild.
void CBspManagerDlg::EnableButtons(bool enabled) {
  for (const ControlId button : {kRebuildQuick, kRebuildOptimal, kBuildWater, IDOK}) {
    Form().Enable(button, enabled);
  }
}

void CBspManagerDlg::OnOK() {
  if (!running_) CDialog::OnOK();
}

void CBspManagerDlg::OnCancel() {
  if (running_) {
    cancelled_ = true;
  } else {
    CDialog::OnCancel();
  }
}

}  // namespace zando
