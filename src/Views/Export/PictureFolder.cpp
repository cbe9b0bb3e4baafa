#include "PictureFolder.h"

#include "ExportFormat.h"
#include "FileNames.h"
#include "ProjectModels.h"
#include "SlideRendererView.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quenara {

namespace {

constexpr int rowsAtOnce = 216; ///< a fifth of a picture

/// A path that nothing has yet: \a name in \a folder, else with a number behind it.
QString freePath(const QDir &folder, const QString &name)
{
    QString path = folder.filePath(name);
    for (int number = 2; QFileInfo(path).isSymLink() || QFileInfo::exists(path); ++number)
        path = folder.filePath(QStringLiteral("%1 %2").arg(name).arg(number));
    return path;
}

} // namespace

PictureFolder::PictureFolder(const QString &parentFolder, const QString &projectName,
                             qsizetype slideCount)
    : m_parentFolder(parentFolder), m_name(portableName(projectName)), m_slideCount(slideCount)
{
    if (m_name.isEmpty())
        m_name = QStringLiteral("Quenara");
    m_path = QDir(m_parentFolder).filePath(m_name);
}

PictureFolder::~PictureFolder()
{
    if (!m_passing.isEmpty())
        QDir(m_passing).removeRecursively();
}

bool PictureFolder::open()
{
    const QString name =
        QStringLiteral(".exporting-%1").arg(QRandomGenerator::system()->generate64(), 0, 16);
    const QString passing = QDir(m_parentFolder).filePath(name);
    std::error_code error;
    if (!std::filesystem::create_directory(QFileInfo(passing).filesystemFilePath(), error)) {
        m_fault = QString::fromStdString(error.message());
        return false;
    }
    m_passing = passing;
    return true;
}

void PictureFolder::paint(const FlattenedSlide &slide, RenderCaches &caches)
{
    m_pictureName = pictureName(slide, m_slideCount);
    m_picture = QImage(exportedPixels, QImage::Format_RGB32);
    m_picture.fill(Qt::black);
    QPainter painter(&m_picture);
    SlideRendererView{.slide = slide.slide}.paint(painter, m_picture.rect(), caches);
}

bool PictureFolder::write()
{
    bool isWritten = true;
    if (!m_file) {
        m_file = std::make_unique<PngFile>(QDir(m_passing).filePath(m_pictureName));
        m_row = 0;
        isWritten = m_file->open(m_picture.size());
    }
    const int count = std::min(rowsAtOnce, m_picture.height() - m_row);
    if (!isWritten || !m_file->writeRows(m_picture, m_row, count)) {
        m_fault = m_file->fault();
        return false;
    }
    m_row += count;
    if (m_row == m_picture.height())
        m_file.reset();
    return true;
}

bool PictureFolder::finish()
{
    m_path = freePath(QDir(m_parentFolder), m_name);
    std::error_code error;
    std::filesystem::rename(QFileInfo(m_passing).filesystemFilePath(),
                            QFileInfo(m_path).filesystemFilePath(), error);
    if (error) {
        m_fault = QString::fromStdString(error.message());
        return false;
    }
    m_passing.clear();
    return true;
}

QString pictureName(const FlattenedSlide &slide, qsizetype slideCount)
{
    constexpr int fewestDigits = 3;
    const int digits = std::max(fewestDigits, int(QString::number(slideCount).size()));
    const QString section = portableName(slide.serviceItemTitle);
    const QString title = portableName(slide.slide.title);
    QString name = QStringLiteral("%1").arg(slide.absoluteIndex + 1, digits, 10, QLatin1Char('0'));
    if (!section.isEmpty())
        name += QLatin1Char(' ') + section;
    if (!title.isEmpty() && title != section)
        name += (section.isEmpty() ? QStringLiteral(" ") : QStringLiteral(" - ")) + title;
    return fileNameFrom(name + QStringLiteral(".png"));
}

} // namespace quenara
