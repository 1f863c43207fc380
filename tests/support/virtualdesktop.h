// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessibilitybus.h"
#include "virtualdisplay.h"

namespace quorvale::test {

/// What a desktop session offers a program: a display and the bus of the screen readers. There is
/// nothing else on its session bus, so that the program shows panels of its own, unless the test
/// puts a portal there.
class VirtualDesktop
{
public:
    /// Starts it. False, with a warning, when that fails.
    bool start() { return m_display.start() && m_accessibility.start(); }

    const VirtualDisplay &display() const { return m_display; }
    const AccessibilityBus &accessibility() const { return m_accessibility; }

private:
    VirtualDisplay m_display;
    AccessibilityBus m_accessibility;
};

} // namespace quorvale::test
