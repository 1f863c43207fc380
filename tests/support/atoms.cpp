// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "atoms.h"

#include <QFile>
#include <QtEndian>

namespace quorvale::test {

QList<QByteArray> topLevelAtoms(const QString &path)
{
    constexpr qint64 shortHeader = 8; // 32 bits of size, the type
    constexpr qint64 longHeader = 16; // size 1, the type, 64 bits of size

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const qint64 end = file.size();
    QList<QByteArray> types;
    for (qint64 start = 0; start < end;) {
        if (!file.seek(start))
            return {};
        const QByteArray header = file.read(longHeader);
        if (header.size() < shortHeader)
            return {};
        types << header.sliced(4, 4);

        qint64 smallest = shortHeader;
        qint64 size = qFromBigEndian<quint32>(header.constData());
        if (size == 0) // to the end of the file
            return types;
        if (size == 1) {
            if (header.size() < longHeader)
                return {};
            smallest = longHeader;
            size = qFromBigEndian<qint64>(header.constData() + shortHeader);
        }
        if (size < smallest || size > end - start)
            return {};
        start += size;
    }
    return types;
}

} // namespace quorvale::test
