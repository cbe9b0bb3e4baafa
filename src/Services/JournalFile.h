#pragma once

#include "Session.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace quenara {

/// The recovery journal of this process: a file of its own in \a folder, readable by its user only
/// and locked until it is closed or the process ends, however that happens.
class JournalFile
{
public:
    /// Makes no file yet.
    explicit JournalFile(QString folder);

    const QString &path() const { return m_path; }
    bool isOpen() const { return m_file != nullptr; }
    /// Whether the next start would find what is written. False once somebody has removed the file
    /// or its folder, or has put another in its place.
    bool isInPlace() const;
    /// In bytes; 0 while there is none.
    qint64 size() const { return m_file ? m_file->size() : 0; }

    // Each returns false if it fails. What is whole in the file can still be read then.

    /// Makes \a pieces the whole content. Fails, too, where the file system has no locks. With \a
    /// isDurable they are on the disk before anything is lost of what was in the file.
    [[nodiscard]] bool begin(const QByteArrayList &pieces, bool isDurable);
    [[nodiscard]] bool append(const QByteArrayList &pieces);
    /// Waits until everything is on the disk.
    [[nodiscard]] bool synchronize();

    void remove();
    /// Leaves the file to the next start of the program.
    void close() { m_file.reset(); }

private:
    QString m_folder;
    QString m_path;
    std::unique_ptr<QFile> m_file;
    bool m_isFolderSynchronized = false;
};

/// The journal of a process that ended unexpectedly. Locked as long as a copy of this lives, so
/// that no other program offers it at the same time.
struct LeftOverJournal
{
    QString path;
    QDateTime time; ///< of the last entry
    Session session;
    std::shared_ptr<QFile> lock;

    void remove() const;
};

/// How large the journals that are read at one start may be in bytes, all together.
inline constexpr qint64 mostLeftOverBytes = qint64(1) << 30U;

/// The journals in \a folder that no running program has, newest first; of more than \a mostBytes
/// those that fit when taken in this order, and one of any size. Removes those that hold nothing to
/// bring back, and leaves files alone that are none.
[[nodiscard]] QList<LeftOverJournal> leftOverJournals(const QString &folder,
                                                      qint64 mostBytes = mostLeftOverBytes);

/// Whether another running program has the document in \a file open, under whatever path, as the
/// journals in \a folder tell. \a own are the paths of those that this program has.
[[nodiscard]] bool isOpenElsewhere(const QUrl &file, const QString &folder, const QStringList &own);

} // namespace quenara
