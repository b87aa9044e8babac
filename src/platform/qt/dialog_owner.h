// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

class QWidget;

namespace quavix {

/// Returns the window that a question belongs to: the active one, or else the closest one above it that does
/// not go away by itself, as menus and windows that are deleted on closing do. Null if there is none.
QWidget* DialogOwner();

/// Returns the window that a message belongs to which nobody waits for: as DialogOwner(), but no modal
/// dialog, which closes when it is answered.
QWidget* LastingDialogOwner();

/// A dialog that is shown to wait for its answer, and deleted with this object. Its owner may be destroyed
/// while it is open and takes the dialog along; the dialog is rejected then.
template <typename Dialog>
class OwnedDialog {
  public:
    explicit OwnedDialog(QWidget* owner) : dialog_(new Dialog(owner)) {}
    ~OwnedDialog() { delete dialog_.data(); }
    OwnedDialog(const OwnedDialog&) = delete;
    OwnedDialog& operator=(const OwnedDialog&) = delete;

    /// False once the dialog has been destroyed with its owner.
    explicit operator bool() const { return !dialog_.isNull(); }
    Dialog& operator*() const { return *dialog_; }
    Dialog* operator->() const { return dialog_.data(); }

  private:
    QPointer<Dialog> dialog_;
};

}  // namespace quavix
