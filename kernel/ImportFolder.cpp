#include "kernel/ImportFolder.h"
#include "kernelapi/KernelError.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

const QString ImportFolder::DoneFolder = QStringLiteral("done");
const QString ImportFolder::RefusedFolder = QStringLiteral("refused");

namespace {
const QString ReasonSuffix = QStringLiteral(".reason.txt");

QString Ensured(const QString& path)
{
    if (!QDir().mkpath(path))
        throw KernelError(QStringLiteral("Cannot create the folder '%1'").arg(QDir::toNativeSeparators(path)));
    return QDir(path).absolutePath() + QLatin1Char('/');
}
}

ImportFolder::ImportFolder(const QString& root, Clock clock) : m_root(Ensured(root)), m_clock(std::move(clock)) {}

bool ImportFolder::LooksPartial(const QString& name)
{
    static const QStringList endings{QStringLiteral(".part"), QStringLiteral(".tmp"), QStringLiteral(".crdownload"),
                                     QStringLiteral("~")};
    if (name.startsWith(QLatin1Char('.')))
        return true;
    return std::any_of(endings.begin(), endings.end(), [&](const QString& end) { return name.endsWith(end, Qt::CaseInsensitive); });
}

QStringList ImportFolder::Ready()
{
    m_waiting.clear();
    QStringList ready;
    const QDateTime now = m_clock();
    const QFileInfoList files = QDir(m_root).entryInfoList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& file : files) {
        const bool settled = file.lastModified().secsTo(now) >= SettleSeconds;
        if (LooksPartial(file.fileName()) || !settled)
            m_waiting << file.fileName();
        else
            ready << file.absoluteFilePath();
    }
    return ready;
}

QString ImportFolder::MoveToDone(const QString& path) const
{
    return MoveTo(m_root + DoneFolder, path);
}

QString ImportFolder::MoveToRefused(const QString& path, const QString& reason) const
{
    const QString target = MoveTo(m_root + RefusedFolder, path);
    QFile note(target + ReasonSuffix);
    if (!note.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text) || note.write((reason + u'\n').toUtf8()) < 0)
        throw KernelError(QStringLiteral("Cannot write the reason '%1'").arg(QDir::toNativeSeparators(note.fileName())));
    return target;
}

QString ImportFolder::MoveTo(const QString& folder, const QString& path) const
{
    const QString dir = Ensured(folder);
    const QString target = dir + FreeName(dir, QFileInfo(path).fileName());
    if (!QFile::rename(path, target))
        throw KernelError(QStringLiteral("Cannot move '%1' to '%2'").arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(target)));
    return target;
}

QString ImportFolder::FreeName(const QString& folder, const QString& name)
{
    const QFileInfo info(name);
    const QString stem = info.completeBaseName();
    const QString extension = info.suffix().isEmpty() ? QString() : QStringLiteral(".") + info.suffix();
    const QDir dir(folder);
    QString candidate = name;
    for (int n = 1; dir.exists(candidate) || dir.exists(candidate + ReasonSuffix); ++n)
        candidate = QStringLiteral("%1-%2%3").arg(stem).arg(n).arg(extension);
    return candidate;
}
