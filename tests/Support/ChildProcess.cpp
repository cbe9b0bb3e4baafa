#include "ChildProcess.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quenara::test {

int statusOfProcess(const std::function<int()> &work)
{
    const pid_t process = ::fork();
    if (process == 0)
        ::_exit(work());
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool dropPrivileges()
{
    constexpr uid_t nobody = 65534;
    return ::geteuid() != 0 || ::setuid(nobody) == 0;
}

bool limitMemory(std::size_t bytes)
{
    const rlimit limit{bytes, bytes};
    return ::setrlimit(RLIMIT_AS, &limit) == 0;
}

} // namespace quenara::test
