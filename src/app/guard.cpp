#include "app/guard.h"

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

namespace zando {
namespace {

/// A menu text without its mark, and without the dots that promise a dialog.
std::string PlainName(std::string_view menuText) {
  std::string name(menuText);
  std::erase(name, '&');
  name.resize(name.find_last_not_of(". ") + 1);
  return name;
}

/// Called while an exception is handled.
std::string ReasonOfWhatIsCaught() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "not enough memory";
  } catch (const std::length_error&) {
    return "not enough memory";
  } catch (const std::exception& error) {
    return error.what();
  } catch (...) {
    return "for an unknown reason";
  }
}

}  // namespace

void CGuard::TellWhatIsCaught() noexcept {
  try {
    desktop_.ShowFailure(PlainName(name_) + " failed: " + ReasonOfWhatIsCaught());
  } catch (...) {
    // Without memory for a line of text nothing can be told.
    return;
  }
}

}  // namespace zando
