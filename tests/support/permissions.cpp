// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "permissions.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr unsigned overlookingPermissions[] = {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH};

// A program that the superuser starts gets what its bounding set allows, a thread keeps what it
// has.
void drop(unsigned capability)
{
    ::prctl(PR_CAPBSET_DROP, capability);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[_LINUX_CAPABILITY_U32S_3];
    if (::syscall(SYS_capget, &header, sets) != 0)
        return;
    const unsigned others = ~(1U << capability);
    sets[0].effective &= others;
    sets[0].permitted &= others;
    sets[0].inheritable &= others;
    ::syscall(SYS_capset, &header, sets);
}

bool canBeReadByATool(const QString &path)
{
    return QProcess::execute(u"/bin/sh"_s, {u"-c"_s, u"{ : < \"$0\"; } 2> /dev/null"_s, path}) == 0;
}

} // namespace

void letPermissionsBind()
{
    for (const unsigned capability : overlookingPermissions)
        drop(capability);
    QTemporaryFile secret;
    if (!secret.open() || !canBeReadByATool(secret.fileName()) || !secret.setPermissions({}))
        qFatal("Cannot make a file that nobody may read");
    if (QFile(secret.fileName()).open(QIODevice::ReadOnly) || canBeReadByATool(secret.fileName()))
        qFatal("Permissions do not bind: run the tests as another user, or with CAP_SETPCAP");
}

} // namespace quorvale::test
