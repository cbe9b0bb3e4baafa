#include "TerminationSignals.h"

#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace quenara {

#ifdef Q_OS_UNIX

namespace {

constexpr std::array terminationSignals = {SIGTERM, SIGHUP, SIGINT};

/// A handler may do no more than write to a pipe. Its ends, first the one to read from.
std::array<int, 2> signalPipe = {-1, -1};
std::array<struct sigaction, terminationSignals.size()> formerActions;

void tellOfSignal(int /*number*/)
{
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = error;
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (::pipe(signalPipe.data()) != 0)
        return;
    for (const int end : signalPipe) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto *notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> bytes{};
        while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {}
        emit received();
    });
    struct sigaction action
    {};
    action.sa_handler = tellOfSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < terminationSignals.size(); ++i) {
        ::sigaction(terminationSignals[i], nullptr, &formerActions[i]);
        if (formerActions[i].sa_handler != SIG_IGN)
            ::sigaction(terminationSignals[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    if (signalPipe[0] < 0)
        return;
    for (std::size_t i = 0; i < terminationSignals.size(); ++i)
        ::sigaction(terminationSignals[i], &formerActions[i], nullptr);
    for (int &end : signalPipe) {
        ::close(end);
        end = -1;
    }
}

#else

TerminationSignals::TerminationSignals() = default;
TerminationSignals::~TerminationSignals() = default;

#endif

} // namespace quenara
