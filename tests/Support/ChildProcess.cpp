#include "ChildProcess.h"

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

} // namespace quenara::test
