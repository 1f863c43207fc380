// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "shownjob.h"

#include "model/failurereason.h"
#include "model/filename.h"
#include "model/filepath.h"

using namespace Qt::StringLiterals;

namespace quorvale {

QString ShownJob::fileName() const
{
    return shownPath(lastPathComponent(m_path));
}

QString ShownJob::sourcePath() const
{
    return shownPath(m_path);
}

QString ShownJob::folderName() const
{
    return shownPath(quorvale::folderName(m_path));
}

QString ShownJob::stateWord() const
{
    switch (m_state.kind()) {
    case JobState::Case::waiting:
        return u"Ready"_s;
    case JobState::Case::converting:
        return u"Converting"_s;
    case JobState::Case::completed:
        return u"Complete"_s;
    case JobState::Case::failed:
        return u"Failed"_s;
    case JobState::Case::cancelled:
        return u"Cancelled"_s;
    }
    Q_UNREACHABLE();
}

QString ShownJob::mainMessage() const
{
    return failureReason(message());
}

} // namespace quorvale
