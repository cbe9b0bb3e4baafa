#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>

namespace quenara::json {

/// Collects what RapidJSON writes; the bytes are handed over without a copy.
class ByteSink
{
public:
    // RapidJSON's names for the parts of an output stream.
    using Ch = char;

    void Put(char byte)
    {
        makeRoom(1);
        m_bytes.data()[m_size++] = byte;
    }
    void Flush() {}

    void append(QByteArrayView bytes)
    {
        makeRoom(bytes.size());
        std::copy(bytes.begin(), bytes.end(), m_bytes.data() + m_size);
        m_size += bytes.size();
    }

    [[nodiscard]] QByteArray take()
    {
        m_bytes.truncate(m_size);
        m_size = 0;
        return std::move(m_bytes);
    }

private:
    void makeRoom(qsizetype count)
    {
        constexpr qsizetype leastGrowth = 4096;
        if (m_size + count > m_bytes.size())
            m_bytes.resize(std::max(m_size + count, m_bytes.size() * 2 + leastGrowth));
    }

    QByteArray m_bytes; ///< filled up to m_size
    qsizetype m_size = 0;
};

} // namespace quenara::json
