#pragma once

namespace quenara::test {

/// Keeps this process, while it lives, from making any file larger than a number of bytes, as a
/// full disk does. Files that are larger already keep what they hold.
class FullDisk
{
public:
    explicit FullDisk(unsigned long room = 0);
    ~FullDisk();

    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    unsigned long m_formerRoom;
};

} // namespace quenara::test
