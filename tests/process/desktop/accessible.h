// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <vector>

#include <QDBusConnection>
#include <QStringList>

class QDBusArgument;
class QDBusMessage;

namespace quavix::test {

/// Error for an object that is gone, whose program is gone, or that does not support the request.
class AccessibleError : public std::runtime_error {
  public:
    explicit AccessibleError(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// States as they are numbered between programs and assistive technology.
enum class AccessibleState { Checked = 4, Enabled = 8, Focusable = 11, Selected = 23, Showing = 25 };

/// An object of a program as assistive technology sees it. It is asked anew at each call, all of which throw
/// AccessibleError.
class Accessible {
  public:
    Accessible(const QDBusConnection& bus, QString service, QString path)
        : bus_(bus), service_(std::move(service)), path_(std::move(path)) {}

    QString Name() const;
    /// Returns the role in words, as "push button".
    QString Role() const;
    bool Has(AccessibleState state) const;
    std::vector<Accessible> Children() const;
    /// The objects of which this one is said to be a label, and those that are said to be labels of it.
    std::vector<Accessible> Labelled() const { return Related(1); }
    std::vector<Accessible> Labels() const { return Related(2); }

    /// Returns the names of its actions, as "Press".
    QStringList Actions() const;
    /// Starts an action, and does not wait for its end: if the action opens a box, the program answers after
    /// that is closed.
    void Do(const QString& action) const;

    /// The content of a field.
    QString Text() const;
    void SetText(const QString& text) const;
    /// The position of a slider.
    double Value() const;
    void SetValue(double value) const;
    /// A cell of a table; both count from 0.
    Accessible CellAt(int row, int column) const;

    /// The process that it belongs to.
    qint64 ProcessId() const;

  private:
    QDBusMessage Message(const char* interface, const char* method, const QVariantList& arguments) const;
    QVariant Call(const char* interface, const char* method, const QVariantList& arguments = {}) const;
    QVariant Property(const char* interface, const char* name) const;
    std::vector<Accessible> Related(uint relation) const;
    Accessible Reference(const QDBusArgument& from) const;
    std::vector<Accessible> References(const QDBusArgument& from) const;

    QDBusConnection bus_;
    QString service_;
    QString path_;
};

/// All programs that assistive technology sees on the bus.
std::vector<Accessible> AccessiblePrograms(const QDBusConnection& bus);

}  // namespace quavix::test
