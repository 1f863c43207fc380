// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "foldercontent.h"

#include <vector>

namespace quorvale {

/// The videos at one place and below it, as far as they are known. Keeps their order whatever the
/// order in which the places are looked at: folder by folder in the order of the names' bytes,
/// each folder's content right behind the folder.
class VideoTree
{
public:
    explicit VideoTree(const SearchedPlace &place) : m_place(place) {}

    const SearchedPlace &place() const { return m_place; }

    /// Takes what there is at the place. To be called at most once; without, it counts as empty.
    void fill(FolderContent content);

    /// The folders at the place, each a tree of its own; none until it is filled, and where they
    /// are from then on.
    std::vector<VideoTree> &folders() { return m_folders; }

    /// Puts all videos of the tree, which then has none, behind those in `found`.
    void moveInto(QList<SourceFile> &found);

private:
    SearchedPlace m_place;
    QList<SourceFile> m_videos;
    std::vector<VideoTree> m_folders;
    qsizetype m_position = 0; // how many videos of the tree around it come before those of this one
};

} // namespace quorvale
