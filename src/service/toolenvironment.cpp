// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "toolenvironment.h"

#include <QByteArrayList>

#include <vector>

extern char **environ; // which POSIX has the program declare

namespace quorvale {

namespace {

class Environment
{
public:
    Environment()
    {
        for (char **entry = ::environ; *entry; ++entry)
            m_entries << *entry;
        // Where the environment asks for colours, lines would begin with codes for them.
        m_entries << "AV_LOG_FORCE_NOCOLOR=1";
        for (QByteArray &entry : m_entries)
            m_pointers.push_back(entry.data());
        m_pointers.push_back(nullptr);
    }

    char *const *pointers() const { return m_pointers.data(); }

private:
    QByteArrayList m_entries;
    std::vector<char *> m_pointers; // to these, ending in a null
};

} // namespace

char *const *toolEnvironment()
{
    static const Environment environment;
    return environment.pointers();
}

} // namespace quorvale
