// SPDX-License-Identifier: MIT
#include <array>

#include <QAccessibleWidget>
#include <QPointer>

#include "ui/widgets/piano_keyboard.h"

namespace quavix {
namespace {

/// One key. It becomes invalid with its keyboard.
class KeyInterface : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    KeyInterface(PianoKeyboard* piano, int key) : piano_(piano), key_(key) {}

    bool isValid() const override { return piano_ != nullptr; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(piano_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Button; }
    QWindow* window() const override { return piano_->window()->windowHandle(); }

    QString text(QAccessible::Text what) const override {
        switch (what) {
            case QAccessible::Name:
                return piano_->KeyName(key_);
            case QAccessible::Description:
                return piano_->toolTip();
            default:
                return {};
        }
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        const QRect place = piano_->KeyRect(key_);
        return {piano_->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = true;
        state.focused = piano_->hasFocus() && piano_->CurrentKey() == key_;
        state.pressed = piano_->IsPressed(key_);
        state.active = piano_->IsSounding(key_);
        state.disabled = !piano_->isEnabled();
        state.invisible = !piano_->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override {
        if (action == pressAction()) {
            piano_->ClickKey(key_);
        } else if (action == setFocusAction()) {
            piano_->SetCurrentKey(key_);
            piano_->setFocus(Qt::OtherFocusReason);
        }
    }

  private:
    QPointer<PianoKeyboard> piano_;
    int key_;
};

class PianoInterface : public QAccessibleWidget {
  public:
    explicit PianoInterface(PianoKeyboard* piano)
        : QAccessibleWidget(piano, QAccessible::Grouping), piano_(piano) {
        for (int key = 0; key < PianoPlan::Keys; ++key)
            keys_[static_cast<std::size_t>(key)] =
                QAccessible::registerAccessibleInterface(new KeyInterface(piano, key));
    }
    ~PianoInterface() override {
        for (const QAccessible::Id id : keys_)
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return PianoPlan::Keys; }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= PianoPlan::Keys)
            return nullptr;
        return QAccessible::accessibleInterface(keys_[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (int key = 0; key < PianoPlan::Keys; ++key) {
            if (child(key) == wanted)
                return key;
        }
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        return piano_->hasFocus() ? child(piano_->CurrentKey()) : nullptr;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = piano_->mapFromGlobal(QPoint(x, y));
        return child(PianoPlan(piano_->rect()).KeyAt(point));
    }

  private:
    PianoKeyboard* piano_;
    std::array<QAccessible::Id, PianoPlan::Keys> keys_{};
};

}  // namespace

QAccessibleInterface* PianoAccessible(const QString&, QObject* object) {
    auto* piano = qobject_cast<PianoKeyboard*>(object);
    return piano != nullptr ? new PianoInterface(piano) : nullptr;
}

}  // namespace quavix
