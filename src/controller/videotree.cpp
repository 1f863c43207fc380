// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "videotree.h"

#include <iterator>

namespace quorvale {

void VideoTree::fill(FolderContent content)
{
    m_videos = std::move(content.videos);
    m_folders.reserve(content.folders.size());
    for (const FolderContent::Folder &folder : content.folders) {
        m_folders.emplace_back(SearchedPlace{SourceFile(folder.path), true});
        m_folders.back().m_position = folder.position;
    }
}

void VideoTree::moveInto(QList<SourceFile> &found)
{
    auto video = m_videos.begin();
    const auto moveUntil = [&](auto end) {
        std::move(video, end, std::back_inserter(found));
        video = end;
    };
    for (VideoTree &folder : m_folders) {
        moveUntil(m_videos.begin() + folder.m_position);
        folder.moveInto(found);
    }
    moveUntil(m_videos.end());
    m_videos.clear();
    m_folders.clear();
}

} // namespace quorvale
