#pragma once
// Small readings the kernel tests share: the message of a call that fails, the rows of a
// playlist, and the lines of a station's log.
#include "kernel/FileLogger.h"
#include "kernelapi/KernelError.h"
#include "kernelapi/iCart.h"
#include "kernelapi/iPlayList.h"
#include "kernelapi/iPlayListItem.h"
#include <QDate>
#include <QFile>
#include <QStringList>

namespace KernelChecks {
// The description of the KernelError the call throws; empty when it throws none.
template <typename Call> QString Failure(Call call)
{
    try {
        call();
        return {};
    } catch (const KernelError& e) {
        return e.Description();
    }
}

// The cart IDs of the list's rows, "-" for a blank one.
inline QStringList RowIDs(const iPlayList& list)
{
    QStringList ids;
    for (int i = 1; i <= list.Count(); ++i)
        ids << (list.Item(i)->Cart() ? list.Item(i)->Cart()->ID() : QStringLiteral("-"));
    return ids;
}

// Today's lines of the logger's file that carry the text.
inline QStringList LogLinesWith(const FileLogger& logger, const QString& text)
{
    QFile file(logger.FileFor(QDate::currentDate()));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')).filter(text);
}
}
