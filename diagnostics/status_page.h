// SPDX-License-Identifier: MIT
#pragma once

#include "diagnostics/status_image.h"

namespace Quillmark_logging::status {

// The status page of this process. Nothing here fails, waits for another process, is a point at which a thread is
// cancelled, or throws: what cannot be shown is not shown. Any thread may call.

/// A change of the contents, made with the page locked. What it throws ends it, with the contents half changed.
class Change {
 public:
  virtual void apply(StatusImage& _image) = 0;

 protected:
  Change() = default;
  Change(const Change&) = default;
  Change& operator=(const Change&) = default;
  ~Change() = default;
};

/// Changes the contents and shows them. The first call makes the page, later ones remake one that was removed from
/// outside. Waits at most 100 ms for other threads that do the same, and gives up then.
void changePage(Change& _change) noexcept;

/// The same for who must not wait: only where the page is there, and no other thread is changing it.
/// @return false when another thread is.
bool tryToChangePage(Change& _change) noexcept;

/// Calls for functions instead of objects.
template <class Function>
class ChangeBy : public Change {
 public:
  explicit ChangeBy(Function& _function) : function_(_function) {}
  void apply(StatusImage& _image) override { function_(_image); }

 private:
  Function& function_;
};

template <class Function>
void changePageBy(Function _function) noexcept {
  ChangeBy<Function> change(_function);
  changePage(change);
}

}  // namespace Quillmark_logging::status
