// screen_watch X Y WIDTH HEIGHT: looks at a part of the root window as often as the server allows
// and prints "frame TIME HASH" for the first image and for every one that differs from the one
// before; HASH is the SHA-1 of its RGB bytes. Keys are pressed for those who write "press KEYSYM",
// KEYSYM being a hexadecimal number, to it; it prints "press TIME" then. Times are nanoseconds of
// one clock. Ends with its input.
//
// screen_watch --once X Y WIDTH HEIGHT: writes the RGB bytes of what is shown there now.
//
// screen_watch --until SECONDS X Y WIDTH HEIGHT: reads the RGB bytes of an image and ends with 0
// once that is shown there, or with 3 if it is not in time.

#include <QByteArray>
#include <QCryptographicHash>

#include <algorithm>
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
#include <vector>
#include <xcb/shm.h>
#include <xcb/xtest.h>

namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr int notShown = 3; ///< the status if an image is not shown in time

std::int64_t now()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
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
        // An answer to anything: the server has attached the memory by then.
        const Owned<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(m_server, xcb_get_input_focus(m_server), nullptr));
        shmctl(memory, IPC_RMID, nullptr);
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

    void press(xcb_keysym_t symbol)
    {
        const std::uint8_t key = keyOf(symbol);
        for (const int event : {XCB_KEY_PRESS, XCB_KEY_RELEASE})
            xcb_test_fake_input(m_server, std::uint8_t(event), key, 0, m_root->root, 0, 0, 0);
        xcb_flush(m_server);
    }

private:
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
};

/// Does what the input asks for, without waiting for it; false at its end.
bool obey(Screen &screen)
{
    pollfd input{.fd = 0, .events = POLLIN, .revents = 0};
    while (poll(&input, 1, 0) > 0) {
        std::string word;
        std::string symbol;
        if (!(std::cin >> word >> symbol))
            return false;
        say("press " + std::to_string(now()));
        screen.press(xcb_keysym_t(std::stoul(symbol, nullptr, 16)));
        if (std::cin.rdbuf()->in_avail() <= 0)
            break;
    }
    return true;
}

/// Tells of every frame until the input ends.
void watch(Screen &screen)
{
    Frames frames;
    Pixels before;
    while (obey(screen)) {
        // A small area is looked at often enough, and the server has others to serve.
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        if (!screen.look())
            continue;
        const auto pixels = screen.pixels();
        if (!std::equal(pixels.begin(), pixels.end(), before.begin(), before.end())) {
            before.assign(pixels.begin(), pixels.end());
            frames.add(now(), before);
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
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!screen.look() || !isShown(screen.pixels(), colors)) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
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
