// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "readthrough.h"

#include "model/filepath.h"
#include "readerrors.h"
#include "systemerror.h"

#include <QScopeGuard>

#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvale {

void readThrough(const QUrl &source, const std::stop_token &cancelled)
{
    constexpr std::size_t blockSize = 1'048'576; // bytes
    const QByteArray path = filePath(source);
    std::vector<char> block(blockSize);
    const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    const auto close = qScopeGuard([file] { ::close(file); });
    ssize_t count = file < 0 ? -1 : 1;
    while (count > 0 && !cancelled.stop_requested()) {
        do
            count = ::read(file, block.data(), block.size());
        while (count < 0 && errno == EINTR);
    }
    if (count >= 0)
        return;
    if (const QByteArrayView words = ReadErrors::wordsFor(errno); !words.isEmpty())
        throw SystemError(u"“%1” could not be read to its end: %2."_s.arg(
            shownPath(path), QLatin1StringView(words)));
}

} // namespace quorvale
