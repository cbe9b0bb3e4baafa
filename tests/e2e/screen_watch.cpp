// screen_watch X Y WIDTH HEIGHT: looks at a part of the root window whenever anything was drawn
// there or beside it and prints "frame TIME HASH" for the first image and for every one that
// differs from the one before; HASH is the SHA-1 of its RGB bytes. Keys are pressed for those who
// write "press KEYSYM", KEYSYM being a hexadecimal number, to it; it prints "press TIME" then.
// Times are nanoseconds of one clock. Ends with its input.
//
// screen_watch --once X Y WIDTH HEIGHT: writes the RGB bytes of what is shown there now.
//
// screen_watch --until SECONDS X Y WIDTH HEIGHT: reads the RGB bytes of an image and ends with 0
// once that is shown there, or with 3 if it is not in time.

#include <QByteArray>
#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <iostream>
#include <memory>
#include <mutex>
#include <poll.h>
#include <span>
#include <string>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>
#include <xcb/damage.h>
#include <xcb/shm.h>
#include <xcb/xtest.h>

namespace {

using Pixels = std::vector<std::uint32_t>;

using Clock = std::chrono::steady_clock;

constexpr int notShown = 3; ///< the status if an image is not shown in time
constexpr int forEver = -1; ///< in milliseconds, as poll() has it
/// A window is painted in parts, and what stands between them is no frame: the longest pause before
/// the next part, in milliseconds, and how long painting takes at most.
constexpr int betweenParts = 2;
constexpr std::chrono::milliseconds longestPainting(10);
/// No finger presses twice so soon. What is released and pressed in one millisecond is a key that
/// is held down: that is how a server repeats it.
constexpr std::chrono::milliseconds betweenPresses(5);
/// How often an area is looked at that is no part of the root window, in milliseconds.
constexpr int beforeItIsThere = 5;

std::int64_t now()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
        .count();
}

[[noreturn]] void fail(const char *message)
{
    std::fprintf(stderr, "screen_watch: %s\n", message);
    std::exit(1);
}

/// Three bytes for each, red first.
QByteArray rgbOf(std::span<const std::uint32_t> pixels)
{
    QByteArray colors(qsizetype(3 * pixels.size()), Qt::Uninitialized);
    char *color = colors.data();
    for (const std::uint32_t pixel : pixels) {
        *color++ = char(pixel >> 16U);
        *color++ = char(pixel >> 8U);
        *color++ = char(pixel);
    }
    return colors;
}

void say(const std::string &line)
{
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    std::puts(line.c_str());
    std::fflush(stdout);
}

/// Answers of the server are freed as C allocated them.
struct Free
{
    void operator()(void *answer) const { std::free(answer); }
};
template<typename Answer>
using Owned = std::unique_ptr<Answer, Free>;

/// Hashes frames while the next ones are taken.
class Frames
{
public:
    Frames() : m_thread([this] { work(); }) {}

    ~Frames()
    {
        add(0, {});
        m_thread.join();
    }

    /// A frame without pixels is the last.
    void add(std::int64_t time, Pixels pixels)
    {
        const std::lock_guard lock(m_mutex);
        m_frames.emplace_back(time, std::move(pixels));
        m_filled.notify_one();
    }

private:
    void work()
    {
        for (;;) {
            std::unique_lock lock(m_mutex);
            m_filled.wait(lock, [this] { return !m_frames.empty(); });
            const auto [time, pixels] = std::move(m_frames.front());
            m_frames.pop_front();
            lock.unlock();
            if (pixels.empty())
                return;
            const QByteArray hash =
                QCryptographicHash::hash(rgbOf(pixels), QCryptographicHash::Sha1).toHex();
            say("frame " + std::to_string(time) + ' ' + hash.toStdString());
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_filled;
    std::deque<std::pair<std::int64_t, Pixels>> m_frames;
    std::thread m_thread;
};

class Screen
{
public:
    explicit Screen(std::span<const int> area) : m_area(area.begin(), area.end())
    {
        if (xcb_connection_has_error(m_server))
            fail("no X server");
        const std::size_t size = std::size_t(area[2]) * std::size_t(area[3]);
        const int memory = shmget(IPC_PRIVATE, 4 * size, IPC_CREAT | 0600);
        if (memory < 0)
            fail("no shared memory");
        m_pixels = {static_cast<std::uint32_t *>(shmat(memory, nullptr, 0)), size};
        m_segment = xcb_generate_id(m_server);
        xcb_shm_attach(m_server, m_segment, std::uint32_t(memory), 0);
        waitForServer();
        shmctl(memory, IPC_RMID, nullptr);
        tellOfDrawing();
    }

    ~Screen()
    {
        shmdt(m_pixels.data());
        xcb_disconnect(m_server);
    }

    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    /// What is shown now; false while the area is no part of the root window.
    bool look()
    {
        const auto request = xcb_shm_get_image(m_server, m_root->root, std::int16_t(m_area[0]),
                                               std::int16_t(m_area[1]), std::uint16_t(m_area[2]),
                                               std::uint16_t(m_area[3]), ~0U,
                                               XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment, 0);
        xcb_generic_error_t *error = nullptr;
        const Owned<xcb_shm_get_image_reply_t> answer(
            xcb_shm_get_image_reply(m_server, request, &error));
        const Owned<xcb_generic_error_t> ownedError(error);
        return answer != nullptr;
    }

    std::span<const std::uint32_t> pixels() const { return m_pixels; }

    /// Whether anything was drawn since the last call.
    bool hasChanged()
    {
        hear();
        if (m_hasHeard)
            xcb_damage_subtract(m_server, m_damage, XCB_NONE, XCB_NONE);
        xcb_flush(m_server);
        return std::exchange(m_hasHeard, false);
    }

    /// Waits for something to be drawn or, if that is asked for, for input.
    void wait(int milliseconds, bool orForInput)
    {
        hear(); // of what has come with the answer to something else
        if (m_hasHeard)
            return;
        std::array<pollfd, 2> sources{{
            {.fd = xcb_get_file_descriptor(m_server), .events = POLLIN, .revents = 0},
            {.fd = STDIN_FILENO, .events = POLLIN, .revents = 0},
        }};
        poll(sources.data(), orForInput ? 2 : 1, milliseconds);
        if (xcb_connection_has_error(m_server))
            fail("the X server has gone");
    }

    /// Waits until a finger could press again.
    void waitForFinger() { std::this_thread::sleep_until(m_releasedAt + betweenPresses); }

    /// Waits until nothing more is drawn at once. When the last of it was, as far as has been told.
    std::int64_t waitUntilPainted()
    {
        std::int64_t drawnAt = now();
        const auto end = Clock::now() + longestPainting;
        while (Clock::now() < end) {
            wait(betweenParts, false);
            if (!hasChanged())
                break;
            drawnAt = now();
        }
        return drawnAt;
    }

    void press(xcb_keysym_t symbol)
    {
        const std::uint8_t key = keyOf(symbol);
        for (const int event : {XCB_KEY_PRESS, XCB_KEY_RELEASE})
            xcb_test_fake_input(m_server, std::uint8_t(event), key, 0, m_root->root, 0, 0, 0);
        waitForServer();
        m_releasedAt = Clock::now();
    }

private:
    /// Waits until the server has done all that it was asked for.
    void waitForServer()
    {
        const Owned<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(m_server, xcb_get_input_focus(m_server), nullptr));
    }

    /// Has the server tell of all that is drawn on the root window and within it.
    void tellOfDrawing()
    {
        const xcb_query_extension_reply_t *extension =
            xcb_get_extension_data(m_server, &xcb_damage_id);
        if (!extension || !extension->present)
            fail("the X server does not tell what is drawn");
        const Owned<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
            m_server, xcb_damage_query_version(m_server, 1, 1), nullptr));
        m_drawing = std::uint8_t(extension->first_event + XCB_DAMAGE_NOTIFY);
        m_damage = xcb_generate_id(m_server);
        xcb_damage_create(m_server, m_damage, m_root->root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
        xcb_flush(m_server);
    }

    void hear()
    {
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_server)})
            m_hasHeard |= (event->response_type & 0x7fU) == m_drawing;
    }

    std::uint8_t keyOf(xcb_keysym_t symbol) const
    {
        const xcb_setup_t *setup = xcb_get_setup(m_server);
        const auto request =
            xcb_get_keyboard_mapping(m_server, setup->min_keycode,
                                     std::uint8_t(setup->max_keycode - setup->min_keycode + 1));
        const Owned<xcb_get_keyboard_mapping_reply_t> answer(
            xcb_get_keyboard_mapping_reply(m_server, request, nullptr));
        if (!answer)
            fail("no keyboard");
        const std::span symbols(xcb_get_keyboard_mapping_keysyms(answer.get()),
                                std::size_t(xcb_get_keyboard_mapping_keysyms_length(answer.get())));
        const auto found = std::find(symbols.begin(), symbols.end(), symbol);
        if (found == symbols.end())
            fail("no such key");
        return std::uint8_t(setup->min_keycode
                            + (found - symbols.begin()) / answer->keysyms_per_keycode);
    }

    xcb_connection_t *m_server = xcb_connect(nullptr, nullptr);
    const xcb_screen_t *m_root = xcb_setup_roots_iterator(xcb_get_setup(m_server)).data;
    std::vector<int> m_area;
    xcb_shm_seg_t m_segment = 0;
    std::span<std::uint32_t> m_pixels;
    xcb_damage_damage_t m_damage = 0;
    std::uint8_t m_drawing = 0; ///< what the server calls the event
    bool m_hasHeard = false; ///< whether there was one since the last answer to hasChanged()
    Clock::time_point m_releasedAt;
};

/// Does what the input asks for, which is one thing at a time; false at its end.
bool obey(Screen &screen)
{
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    while (poll(&input, 1, 0) > 0) {
        std::string word;
        std::string symbol;
        if (!(std::cin >> word >> symbol))
            return false;
        screen.waitForFinger();
        say("press " + std::to_string(now()));
        screen.press(xcb_keysym_t(std::stoul(symbol, nullptr, 16)));
    }
    return true;
}

/// Tells of every frame until the input ends, but of those that the next one follows at once, which
/// no screen shows.
void watch(Screen &screen)
{
    Frames frames;
    Pixels before;
    bool isThere = false;
    while (obey(screen)) {
        if (!screen.hasChanged() && isThere) {
            screen.wait(forEver, true);
            continue;
        }
        const std::int64_t drawnAt = screen.waitUntilPainted();
        isThere = screen.look();
        if (!isThere) {
            screen.wait(beforeItIsThere, true);
            continue;
        }
        const auto pixels = screen.pixels();
        if (!std::equal(pixels.begin(), pixels.end(), before.begin(), before.end())) {
            before.assign(pixels.begin(), pixels.end());
            frames.add(drawnAt, before);
        }
    }
}

void writeOnce(Screen &screen)
{
    if (!screen.look())
        fail("the area is no part of the root window");
    const QByteArray colors = rgbOf(screen.pixels());
    if (std::fwrite(colors.constData(), 1, std::size_t(colors.size()), stdout)
        != std::size_t(colors.size()))
        fail("the image cannot be written");
}

bool isShown(std::span<const std::uint32_t> pixels, const std::vector<unsigned char> &colors)
{
    const unsigned char *color = colors.data();
    return std::all_of(pixels.begin(), pixels.end(), [&color](std::uint32_t pixel) {
        const bool isAlike = color[0] == (pixel >> 16U & 0xffU) && color[1] == (pixel >> 8U & 0xffU)
            && color[2] == (pixel & 0xffU);
        color += 3;
        return isAlike;
    });
}

/// Waits for what the input holds. False if that is not shown in time.
bool waitUntilShown(Screen &screen, std::chrono::seconds patience)
{
    std::vector<unsigned char> colors(3 * screen.pixels().size());
    if (std::fread(colors.data(), 1, colors.size(), stdin) != colors.size())
        fail("the input is no image of the area");
    const auto end = Clock::now() + patience;
    for (bool isThere = false; Clock::now() < end;) {
        if (screen.hasChanged() || !isThere) {
            isThere = screen.look();
            if (isThere && isShown(screen.pixels(), colors))
                return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        screen.wait(isThere ? std::max(0, int(left.count())) : beforeItIsThere, false);
    }
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    std::span words(argv + 1, std::size_t(argc - 1));
    const bool isOnce = !words.empty() && std::strcmp(words[0], "--once") == 0;
    const bool isUntil = words.size() > 1 && std::strcmp(words[0], "--until") == 0;
    const std::chrono::seconds patience(isUntil ? std::atoi(words[1]) : 0);
    words = words.subspan(isUntil ? 2 : isOnce ? 1 : 0);
    std::vector<int> area;
    for (const char *word : words)
        area.push_back(std::atoi(word));
    if (area.size() != 4)
        fail("usage: screen_watch [--once | --until SECONDS] X Y WIDTH HEIGHT");
    Screen screen(area);
    if (isUntil)
        return waitUntilShown(screen, patience) ? 0 : notShown;
    isOnce ? writeOnce(screen) : watch(screen);
    return 0;
}
