// SPDX-License-Identifier: MIT
#include "x_display.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace quavix::bench {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds Patience{30'000};
/// A window is complete when it has not drawn for this long.
constexpr milliseconds Quiet{200};

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

std::array<int, 2> MakePipe() {
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe can be made");
    return ends;
}

std::string ReadLine(int descriptor) {
    std::string text;
    char letter = 0;
    while (::read(descriptor, &letter, 1) == 1 && letter != '\n')
        text += letter;
    return text;
}

}  // namespace

Child::Child(const std::vector<std::string>& command, const std::vector<std::string>& environment,
             int keepOpen) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    id_ = ::fork();
    if (id_ != 0)
        return;
    for (const std::string& setting : environment)
        ::putenv(const_cast<char*>(setting.c_str()));
    if (keepOpen >= 0)
        ::fcntl(keepOpen, F_SETFD, 0);
    ::execvp(arguments[0], arguments.data());
    ::_exit(EXIT_FAILURE);
}

Child::~Child() {
    if (id_ > 0) {
        ::kill(id_, SIGTERM);
        while (::waitpid(id_, nullptr, 0) == -1 && errno == EINTR) {
        }
    }
}

XDisplay::XDisplay() : XDisplay(MakePipe()) {}

XDisplay::XDisplay(std::array<int, 2> number)
    : server_({"Xvfb", "-displayfd", std::to_string(number[1]), "-screen", "0", "1920x1080x24"}, {},
              number[1]) {
    ::close(number[1]);
    const std::string screen = ReadLine(number[0]);
    ::close(number[0]);
    if (screen.empty())
        throw std::runtime_error("Xvfb can't be started");
    setting_ = "DISPLAY=:" + screen;
    connection_ = ::xcb_connect((":" + screen).c_str(), nullptr);
    if (::xcb_connection_has_error(connection_) != 0)
        throw std::runtime_error("Xvfb can't be reached");
    root_ = ::xcb_setup_roots_iterator(::xcb_get_setup(connection_)).data->root;

    const std::uint32_t wanted = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    ::xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &wanted);
    const auto* extension = ::xcb_get_extension_data(connection_, &xcb_damage_id);
    damageNotify_ = static_cast<std::uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY);
    const Reply<xcb_damage_query_version_reply_t> version(::xcb_damage_query_version_reply(
        connection_, ::xcb_damage_query_version(connection_, XCB_DAMAGE_MAJOR_VERSION, 1), nullptr));
    ::xcb_damage_create(connection_, ::xcb_generate_id(connection_), root_,
                        XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    ::xcb_flush(connection_);
}

XDisplay::~XDisplay() {
    ::xcb_disconnect(connection_);
}

/// Returns null if no event came in time.
xcb_generic_event_t* XDisplay::NextEvent(Watch::time_point deadline) {
    for (;;) {
        if (xcb_generic_event_t* event = ::xcb_poll_for_event(connection_))
            return event;
        const auto left = std::chrono::duration_cast<milliseconds>(deadline - Watch::now());
        if (left.count() <= 0 || ::xcb_connection_has_error(connection_) != 0)
            return nullptr;
        pollfd socket{::xcb_get_file_descriptor(connection_), POLLIN, 0};
        ::poll(&socket, 1, static_cast<int>(left.count()));
    }
}

XDisplay::Shown XDisplay::WaitForWindow() {
    Shown shown{};
    std::int64_t size = 0;
    auto deadline = Watch::now() + Patience;
    while (const Reply<xcb_generic_event_t> event{NextEvent(deadline)}) {
        const int type = event->response_type & 0x7F;
        if (type == XCB_MAP_NOTIFY && size == 0) {
            const auto* map = reinterpret_cast<const xcb_map_notify_event_t*>(event.get());
            shown.Mapped = Watch::now();
            window_ = map->window;
            const Reply<xcb_get_geometry_reply_t> place(
                ::xcb_get_geometry_reply(connection_, ::xcb_get_geometry(connection_, map->window), nullptr));
            if (place)
                size = std::int64_t{place->width} * place->height;
        } else if (type == damageNotify_ && size != 0) {
            const auto& area = reinterpret_cast<const xcb_damage_notify_event_t*>(event.get())->area;
            if (shown.Painted == Watch::time_point{} && std::int64_t{area.width} * area.height * 2 > size)
                shown.Painted = Watch::now();
            if (shown.Painted != Watch::time_point{})
                deadline = Watch::now() + Quiet;
        }
    }
    if (shown.Painted == Watch::time_point{})
        throw std::runtime_error("no window has come to the screen");
    return shown;
}

void XDisplay::WaitForItsEnd() {
    const auto deadline = Watch::now() + Patience;
    while (const Reply<xcb_generic_event_t> event{NextEvent(deadline)}) {
        if ((event->response_type & 0x7F) == XCB_DESTROY_NOTIFY &&
            reinterpret_cast<const xcb_destroy_notify_event_t*>(event.get())->window == window_)
            return;
    }
    throw std::runtime_error("a window stays on the screen");
}

}  // namespace quavix::bench
