// SPDX-License-Identifier: MIT
#include "platform/qt/qt_application.h"

#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QSocketNotifier>

namespace quavix {
namespace {

/// Reports a missing display: the only fatal message during construction, after which the toolkit would
/// abort.
void ReportMissingDisplay(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        return;
    }
    std::fprintf(
        stderr,
        "quavix: can't open a window, as there is no display to show it on.\n"
        "quavix: start it from a desktop, or set DISPLAY or WAYLAND_DISPLAY to a display that you may "
        "use.\n");
    std::fflush(stderr);
    std::_Exit(EXIT_FAILURE);
}

std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
    const QtMessageHandler earlier = qInstallMessageHandler(ReportMissingDisplay);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(earlier);
    return application;
}

}  // namespace

struct QtApplication::Parts {
    std::unique_ptr<QApplication> Application;
    std::vector<std::unique_ptr<QSocketNotifier>> Notifiers;
    std::vector<std::string> Arguments;
};

QtApplication::QtApplication(int& argc, char** argv, const std::string& name, const std::string& version)
    : parts_(std::make_unique<Parts>()) {
    parts_->Application = MakeApplication(argc, argv);
    // The raw arguments without the toolkit's own, because a file name need not be valid text.
    if (argc > 0)
        parts_->Arguments.assign(argv + 1, argv + argc);
    QApplication::setApplicationName(QString::fromStdString(name));
    QApplication::setApplicationVersion(QString::fromStdString(version));
    QApplication::setDesktopFileName("quavix");
}

QtApplication::~QtApplication() = default;

std::vector<std::string> QtApplication::Arguments() const {
    return parts_->Arguments;
}

void QtApplication::WhenSignalled(WaitHandle handle, std::function<void()> handler) {
    auto notifier = std::make_unique<QSocketNotifier>(static_cast<qintptr>(handle), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [notifier = notifier.get(), handler = std::move(handler)] {
                         notifier->setEnabled(false);
                         handler();
                     });
    parts_->Notifiers.push_back(std::move(notifier));
}

int QtApplication::Run() {
    return QApplication::exec();
}

}  // namespace quavix
