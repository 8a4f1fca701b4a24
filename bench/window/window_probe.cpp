// Starts a program with a window and measures what a person sees: the time until text is painted, the time until a
// key changes the picture, and the peak memory. Polls one rectangle of the screen.
//
//   window_probe X Y WIDTH HEIGHT [KEY ...] -- COMMAND [ARGUMENT ...]
//
// The rectangle must lie where the window shows text. KEY is an X key name, "Control+End" with its modifier; each is
// pressed once the picture has been still for a while. Prints one line a figure: name, tab, value.
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
constexpr std::chrono::milliseconds kPoll(2);
constexpr std::chrono::seconds kPatience(60);
constexpr std::chrono::milliseconds kStill(700);
/// More pixels than a blinking caret has.
constexpr std::size_t kChangedPixels = 60;
/// Text covers at least this share of the rectangle with dark pixels.
constexpr double kTextShare = 0.005;

struct Area {
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
};

std::vector<unsigned long> Picture(Display* display, const Area& area) {
    XImage* const image =
        XGetImage(display, DefaultRootWindow(display), area.x, area.y, area.width, area.height, AllPlanes, ZPixmap);
    std::vector<unsigned long> pixels;
    pixels.reserve(std::size_t{area.width} * area.height);
    for (int y = 0; y < image->height; ++y) {
        for (int x = 0; x < image->width; ++x)
            pixels.push_back(XGetPixel(image, x, y));
    }
    XDestroyImage(image);
    return pixels;
}

/// Letters, dark in their green part, on a light ground: a window that is only half painted has no dark pixels yet.
bool HoldsText(const std::vector<unsigned long>& pixels) {
    const auto count = [&pixels](auto condition) {
        return static_cast<double>(std::count_if(pixels.begin(), pixels.end(), condition));
    };
    const auto all = static_cast<double>(pixels.size());
    const double light = count([](unsigned long pixel) { return (pixel >> 8U & 0xFFU) > 0xC0U; });
    const double dark = count([](unsigned long pixel) { return (pixel >> 8U & 0xFFU) < 0x60U; });
    return light > all / 2 && dark > kTextShare * all;
}

bool HasChanged(const std::vector<unsigned long>& before, const std::vector<unsigned long>& now) {
    std::size_t changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        changed += before[i] != now[i] ? 1 : 0;
    return changed > kChangedPixels;
}

template <class Condition> double WaitFor(Condition condition) {
    const auto start = Clock::now();
    while (!condition()) {
        if (Clock::now() - start > kPatience) {
            std::puts("gave up waiting");
            std::exit(1);
        }
        std::this_thread::sleep_for(kPoll);
    }
    return Milliseconds(Clock::now() - start).count();
}

void WaitUntilStill(Display* display, const Area& area) {
    auto last = Picture(display, area);
    auto since = Clock::now();
    const auto giveUp = Clock::now() + kPatience;
    while (Clock::now() - since < kStill && Clock::now() < giveUp) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        auto now = Picture(display, area);
        if (HasChanged(last, now)) since = Clock::now();
        last = std::move(now);
    }
}

void Press(Display* display, const std::string& key) {
    const std::size_t plus = key.find('+');
    const std::string name = plus == std::string::npos ? key : key.substr(plus + 1);
    const KeyCode code = XKeysymToKeycode(display, XStringToKeysym(name.c_str()));
    const KeyCode control = XKeysymToKeycode(display, XK_Control_L);
    if (plus != std::string::npos) XTestFakeKeyEvent(display, control, True, CurrentTime);
    XTestFakeKeyEvent(display, code, True, CurrentTime);
    XTestFakeKeyEvent(display, code, False, CurrentTime);
    if (plus != std::string::npos) XTestFakeKeyEvent(display, control, False, CurrentTime);
    XFlush(display);
}

void ClickInto(Display* display, const Area& area) {
    XTestFakeMotionEvent(display, -1, area.x + 5, area.y + 5, CurrentTime);
    XTestFakeButtonEvent(display, 1, True, CurrentTime);
    XTestFakeButtonEvent(display, 1, False, CurrentTime);
    XFlush(display);
}

int Probe(const Area& area, const std::vector<std::string>& keys, char** command) {
    Display* const display = XOpenDisplay(nullptr);
    if (display == nullptr) return 1;
    const auto start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(command[0], command);
        _exit(127);
    }
    WaitFor([&] { return HoldsText(Picture(display, area)); });
    std::printf("shown_ms\t%.1f\n", Milliseconds(Clock::now() - start).count());
    if (!keys.empty()) {
        WaitUntilStill(display, area);
        ClickInto(display, area);
    }
    for (const std::string& key : keys) {
        WaitUntilStill(display, area);
        const auto before = Picture(display, area);
        Press(display, key);
        std::printf("%s_ms\t%.1f\n", key.c_str(), WaitFor([&] { return HasChanged(before, Picture(display, area)); }));
    }
    kill(child, SIGKILL);
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    std::printf("peak_mib\t%.1f\n", static_cast<double>(usage.ru_maxrss) / 1024);
    XCloseDisplay(display);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    int next = 5;
    std::vector<std::string> keys;
    while (next < count && std::string(arguments[next]) != "--")
        keys.emplace_back(arguments[next++]);
    if (next + 1 >= count) {
        std::fputs("usage: window_probe X Y WIDTH HEIGHT [KEY ...] -- COMMAND [ARGUMENT ...]\n", stderr);
        return 2;
    }
    const Area area{std::atoi(arguments[1]), std::atoi(arguments[2]), static_cast<unsigned>(std::atoi(arguments[3])),
                    static_cast<unsigned>(std::atoi(arguments[4]))};
    return Probe(area, keys, arguments + next + 1);
}
