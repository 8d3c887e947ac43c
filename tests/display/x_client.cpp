#include "tests/display/x_client.h"

#include <QElapsedTimer>

#include <poll.h>
#include <stdexcept>

// The last ones: they define macros with everyday names.
#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

using namespace Qt::StringLiterals;

namespace display {
namespace {

constexpr int kPatience = 30'000;  // milliseconds

/// A window may be gone by the time that it is asked for.
int IgnoreError(Display*, XErrorEvent*) {
    return 0;
}

}  // namespace

struct XClient::State {
    Atom Named(const char* name) const { return XInternAtom(server, name, 0); }
    /// The property's bytes; longs come as longs. Empty when it is not there.
    QByteArray Property(Window window, const char* name) const;

    Display* server = nullptr;
    Window root = 0;
};

QByteArray XClient::State::Property(Window window, const char* name) const {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(server, window, Named(name), 0, 4096, 0, AnyPropertyType, &type, &format, &count,
                           &left, &data) != Success ||
        !data)
        return {};
    const std::size_t size = format == 32 ? sizeof(long) : static_cast<std::size_t>(format) / 8;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(count * size));
    XFree(data);
    return bytes;
}

XClient::XClient(const QString& displayName) : state_(std::make_unique<State>()) {
    XSetErrorHandler(IgnoreError);
    state_->server = XOpenDisplay(displayName.toUtf8().constData());
    if (!state_->server) throw std::runtime_error("no connection to display " + displayName.toStdString());
    state_->root = DefaultRootWindow(state_->server);
    int number = 0;
    if (!XTestQueryExtension(state_->server, &number, &number, &number, &number))
        throw std::runtime_error("the display takes no keys of a test (XTest)");
    XSelectInput(state_->server, state_->root, StructureNotifyMask);  // as the toolkit addresses its answers
}

XClient::~XClient() {
    XCloseDisplay(state_->server);
}

void XClient::Key(Keysym key, bool down) {
    const KeyCode code = XKeysymToKeycode(state_->server, key);
    if (code == 0) throw std::runtime_error("no key has the symbol " + std::to_string(key));
    XTestFakeKeyEvent(state_->server, code, down, CurrentTime);
}

bool XClient::NeedsShift(Keysym key) const {
    const KeyCode code = XKeysymToKeycode(state_->server, key);
    return XkbKeycodeToKeysym(state_->server, code, 0, 0) != key &&
           XkbKeycodeToKeysym(state_->server, code, 0, 1) == key;
}

void XClient::Flush() {
    XFlush(state_->server);
}

bool XClient::HasWindowManager() const {
    return !state_->Property(state_->root, "_NET_SUPPORTING_WM_CHECK").isEmpty();
}

std::vector<TopWindow> XClient::Windows() const {
    const QByteArray list = state_->Property(state_->root, "_NET_CLIENT_LIST");
    std::vector<TopWindow> windows;
    for (std::size_t i = 0; i < static_cast<std::size_t>(list.size()) / sizeof(long); ++i) {
        const auto id = reinterpret_cast<const unsigned long*>(list.constData())[i];
        windows.push_back({id, QString::fromUtf8(state_->Property(id, "_NET_WM_NAME"))});
    }
    return windows;
}

unsigned long XClient::Focus() const {
    Window window = 0;
    int revert = 0;
    XGetInputFocus(state_->server, &window, &revert);
    return window;
}

bool XClient::Ping(unsigned long window) {
    static long number = 0;
    XEvent ping{};
    ping.xclient.type = ClientMessage;
    ping.xclient.window = window;
    ping.xclient.message_type = state_->Named("WM_PROTOCOLS");
    ping.xclient.format = 32;
    ping.xclient.data.l[0] = static_cast<long>(state_->Named("_NET_WM_PING"));
    ping.xclient.data.l[1] = ++number;
    ping.xclient.data.l[2] = static_cast<long>(window);
    XSendEvent(state_->server, window, 0, NoEventMask, &ping);
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < kPatience) {
        while (XPending(state_->server) > 0) {
            XEvent event;
            XNextEvent(state_->server, &event);
            if (event.type == ClientMessage && event.xclient.data.l[0] == ping.xclient.data.l[0] &&
                event.xclient.data.l[1] == number)
                return true;
        }
        pollfd wait{ConnectionNumber(state_->server), POLLIN, 0};
        ::poll(&wait, 1, 100);
    }
    return false;
}

QImage XClient::Picture(const QRect& area) const {
    XWindowAttributes screen;
    XGetWindowAttributes(state_->server, state_->root, &screen);
    const QRect whole(0, 0, screen.width, screen.height);
    const QRect wanted = area.isNull() ? whole : area & whole;
    XImage* image =
        XGetImage(state_->server, state_->root, wanted.x(), wanted.y(), static_cast<unsigned>(wanted.width()),
                  static_cast<unsigned>(wanted.height()), AllPlanes, ZPixmap);
    if (!image) return {};
    const QImage picture = QImage(reinterpret_cast<const uchar*>(image->data), image->width, image->height,
                                  image->bytes_per_line, QImage::Format_RGB32)
                               .copy();
    XDestroyImage(image);
    return picture;
}

}  // namespace display
