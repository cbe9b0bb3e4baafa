#include "FullDisk.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

namespace quenara::test {

namespace {

rlimit fileLimit()
{
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    return limit;
}

void limitFiles(rlim_t size)
{
    rlimit limit = fileLimit();
    limit.rlim_cur = std::min(size, limit.rlim_max);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace

FullDisk::FullDisk(unsigned long room) : m_formerRoom(fileLimit().rlim_cur)
{
    std::signal(SIGXFSZ, SIG_IGN); // writing is to fail, not to end the process
    limitFiles(room);
}

FullDisk::~FullDisk()
{
    limitFiles(m_formerRoom);
}

} // namespace quenara::test
