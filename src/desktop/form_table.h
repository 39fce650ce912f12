#pragma once

#include <cstdint>

class QDialog;

namespace zando {

/// Puts the controls of the form with this number into an empty dialog; false when there is none.
bool BuildForm(std::int32_t templateId, QDialog& dialog);

}  // namespace zando
