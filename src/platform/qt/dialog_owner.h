// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

class QWidget;

namespace quavix {

/// Returns the owner window for a question: the active window, or else the nearest one above it that does not
/// close by itself, as menus and delete-on-close windows do. Null if there is none.
QWidget* DialogOwner();

/// Returns the owner window for a message without a wait: as DialogOwner(), but no modal dialog, because that
/// closes when it is answered.
QWidget* LastingDialogOwner();

/// A dialog shown to wait for its answer, and deleted with this object. Its owner may be destroyed meanwhile,
/// together with the dialog; the dialog is then rejected.
template <typename Dialog>
class OwnedDialog {
  public:
    explicit OwnedDialog(QWidget* owner) : dialog_(new Dialog(owner)) {}
    ~OwnedDialog() { delete dialog_.data(); }
    OwnedDialog(const OwnedDialog&) = delete;
    OwnedDialog& operator=(const OwnedDialog&) = delete;

    /// Returns false once the dialog has been destroyed with its owner.
    explicit operator bool() const { return !dialog_.isNull(); }
    Dialog& operator*() const { return *dialog_; }
    Dialog* operator->() const { return dialog_.data(); }

  private:
    QPointer<Dialog> dialog_;
};

}  // namespace quavix
