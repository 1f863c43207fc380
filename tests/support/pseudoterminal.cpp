// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "pseudoterminal.h"

#include <QFile>

#include <array>
#include <cstdlib>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace quorvale::test {

PseudoTerminal::PseudoTerminal() : m_controller(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
{
    std::array<char, 128> name{};
    if (m_controller < 0 || ::grantpt(m_controller) != 0 || ::unlockpt(m_controller) != 0
        || ::ptsname_r(m_controller, name.data(), name.size()) != 0)
        return;
    m_path = QFile::decodeName(name.data());
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg)
    m_terminal = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
}

PseudoTerminal::~PseudoTerminal()
{
    if (m_terminal >= 0)
        ::close(m_terminal);
    if (m_controller >= 0)
        ::close(m_controller);
}

QByteArray PseudoTerminal::mode() const
{
    termios settings{};
    if (::tcgetattr(m_terminal, &settings) != 0)
        return {};
    QByteArray mode;
    for (const auto flags :
         {settings.c_iflag, settings.c_oflag, settings.c_cflag, settings.c_lflag})
        mode += QByteArray::number(flags, 8) + ' ';
    for (const cc_t key : settings.c_cc)
        mode += QByteArray::number(key) + ' ';
    return mode;
}

} // namespace quorvale::test
