// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videofinder.h"

#include "localfile.h"
#include "videotree.h"

namespace quorvale {

namespace {

void read(VideoTree &tree)
{
    tree.fill(contentOf(tree.place(), [] { return true; }));
    for (VideoTree &folder : tree.folders())
        read(folder);
}

} // namespace

QList<SourceFile> findVideos(const QList<QUrl> &urls)
{
    QList<SourceFile> found;
    for (const QUrl &url : urls) {
        if (const auto file = localFile(url)) {
            VideoTree tree({*file});
            read(tree);
            tree.moveInto(found);
        }
    }
    return found;
}

} // namespace quorvale
