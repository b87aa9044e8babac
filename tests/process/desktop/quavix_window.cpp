// SPDX-License-Identifier: MIT
#include "quavix_window.h"

#include <stdexcept>

namespace quavix::test {
namespace {

/// The object and all below it, parents first, without the cells of tables: there may be any number of those.
/// Only what shows, or all. An object that goes away meanwhile is left out.
void Collect(const Accessible& from, bool onlyShowing, std::vector<Accessible>& found) {
    try {
        if (onlyShowing && !from.Has(AccessibleState::Showing))
            return;
        found.push_back(from);
        if (from.Role() == "table")
            return;
        for (const Accessible& child : from.Children())
            Collect(child, onlyShowing, found);
    } catch (const AccessibleError&) {
    }
}

std::optional<Accessible> Named(const std::vector<Accessible>& objects, const QString& role,
                                const QString& name) {
    for (const Accessible& object : objects) {
        try {
            if (object.Name() == name && (role.isEmpty() || object.Role() == role))
                return object;
        } catch (const AccessibleError&) {
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<Accessible> QuavixWindow::Application() {
    for (const Accessible& program : AccessiblePrograms(bus_)) {
        if (program.ProcessId() == process_.Id())
            return program;
    }
    return std::nullopt;
}

std::optional<Accessible> QuavixWindow::FindWindow(const QString& title) {
    const std::optional<Accessible> application = Application();
    if (!application)
        return std::nullopt;
    for (const Accessible& window : application->Children()) {
        const QString name = window.Name();
        const bool isIt = name == title || (title == MainTitle && name.startsWith(title));
        if (isIt && window.Has(AccessibleState::Showing))
            return window;
    }
    return std::nullopt;
}

bool QuavixWindow::HasWindow(const QString& title) {
    try {
        return FindWindow(title).has_value();
    } catch (const AccessibleError&) {
        return false;
    }
}

Accessible QuavixWindow::Window(const QString& title) {
    std::optional<Accessible> found;
    if (!WaitUntil([&] { return (found = FindWindow(title)).has_value(); }))
        throw std::runtime_error("no window " + title.toStdString() + " in\n" + Description());
    return *found;
}

std::vector<Accessible> QuavixWindow::Everything(const QString& window) {
    std::vector<Accessible> all;
    Collect(Window(window), true, all);
    return all;
}

Accessible QuavixWindow::Find(const QString& role, const QString& name, const QString& window) {
    std::optional<Accessible> found;
    if (!WaitUntil([&] { return (found = Named(Everything(window), role, name)).has_value(); }))
        throw std::runtime_error("no " + role.toStdString() + " " + name.toStdString() + " in\n" +
                                 Description());
    return *found;
}

Accessible QuavixWindow::FindLabelled(const QString& label, const QString& window) {
    const std::vector<Accessible> labelled = Find("label", label, window).Labelled();
    if (labelled.size() != 1)
        throw std::runtime_error(label.toStdString() + " is the label of nothing");
    return labelled.front();
}

void QuavixWindow::Press(const QString& button, const QString& window) {
    const Accessible found = Find("push button", button, window);
    if (!WaitUntil([&] { return found.Has(AccessibleState::Enabled); }))
        throw std::runtime_error(button.toStdString() + " can't be pressed in\n" + Description());
    found.Do("Press");
}

void QuavixWindow::Choose(const QString& menuItem) {
    std::vector<Accessible> all;
    for (const Accessible& child : Main().Children()) {
        if (child.Role() == "menu bar")
            Collect(child, false, all);
    }
    const std::optional<Accessible> item = Named(all, "menu item", menuItem);
    if (!item)
        throw std::runtime_error("no menu item " + menuItem.toStdString() + " in\n" + Description());
    item->Do("Press");
}

Accessible QuavixWindow::FindReading(const QString& what, const QString& window) {
    std::optional<Accessible> found;
    const auto isThere = [&] {
        for (const Accessible& object : Everything(window)) {
            if (object.Name().startsWith(what + ": ") && object.Role() == "label")
                found = object;
        }
        return found.has_value();
    };
    if (!WaitUntil(isThere))
        throw std::runtime_error("no reading " + what.toStdString() + " in\n" + Description());
    return *found;
}

QString QuavixWindow::Answer(const QString& title, const QString& button) {
    QStringList texts;
    for (const Accessible& object : Everything(title)) {
        if (object.Role() == "label" && !object.Name().isEmpty())
            texts += object.Name();
    }
    Press(button, title);
    if (!WaitUntil([&] { return !HasWindow(title); }))
        throw std::runtime_error("a box stays open: " + title.toStdString());
    return texts.join('\n');
}

void QuavixWindow::GiveFileName(const QString& dialog, const QString& fileName, const QString& button) {
    FindLabelled("File name:", dialog).SetText(fileName);
    Press(button, dialog);
    if (!WaitUntil([&] { return !HasWindow(dialog); }))
        throw std::runtime_error("a file dialog stays open: " + dialog.toStdString());
}

void QuavixWindow::PressKey(const QString& key) {
    int rows = 0;
    while (!Row(rows + 1).isEmpty())
        ++rows;
    Find("push button", key).Do("Press");
    if (!WaitUntil([&] { return !Row(rows + 1).isEmpty(); }))
        throw std::runtime_error("no line comes from the key " + key.toStdString());
}

QString QuavixWindow::Row(int row) {
    try {
        return Find("table", "List of music").CellAt(row - 1, 0).Name();
    } catch (const AccessibleError&) {
        return {};
    }
}

std::string QuavixWindow::Description() {
    std::vector<Accessible> all;
    QString description;
    try {
        if (const auto application = Application())
            Collect(*application, true, all);
        for (const Accessible& object : all)
            description +=
                object.Name().isEmpty() ? QString() : object.Role() + " \"" + object.Name() + "\"\n";
    } catch (const AccessibleError& error) {
        description += error.what();
    }
    if (all.empty())
        description = "nothing: the program shows itself to nobody\n";
    return (description + QString::fromUtf8(process_.Process().readAllStandardError())).toStdString();
}

}  // namespace quavix::test
