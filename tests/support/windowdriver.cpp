// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "windowdriver.h"

#include "virtualdisplay.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

bool WindowDriver::find()
{
    m_window = m_display.waitForWindow(u"Quorvale"_s).value_or(QString());
    if (m_window.isEmpty())
        return false;
    m_area = m_display.areaOf(m_window).value_or(QRect());
    const auto isDrawn = [this] { // with more than the blank that a new window is
        const QByteArray picture = m_display.picture(m_area);
        return !picture.isEmpty() && picture.sliced(4) != picture.chopped(4);
    };
    if (QTest::qWaitFor(isDrawn, 30'000))
        return true;
    qWarning("The window stays blank.");
    return false;
}

QByteArray WindowDriver::restingPicture() const
{
    return m_display.restingPicture(m_area);
}

bool WindowDriver::chooseOutputFolder(const QString &folder)
{
    const QString title = u"Choose output folder"_s;
    if (!goTo(Stop::destination) || !press(u"space"_s))
        return false;
    const auto dialog = m_display.waitForWindow(title);
    if (!dialog || !m_display.activate(*dialog)
        || !m_display.xdotool({u"type"_s, u"--delay"_s, u"5"_s, folder}))
        return false;
    // The first Return may go to the list that offers completions.
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (!press(u"Return"_s))
            return false;
        if (m_display.waitForNoWindow(title, 3000))
            return true;
    }
    qWarning("The dialog does not close.");
    return false;
}

bool WindowDriver::chooseCodec(OutputCodec codec)
{
    if (!goTo(Stop::codec) || !press(u"Home"_s))
        return false;
    for (const OutputCodec other : allCases<OutputCodec>()) {
        if (other == codec)
            return true;
        if (!press(u"Down"_s))
            return false;
    }
    return false;
}

bool WindowDriver::convert()
{
    return goTo(Stop::convert) && press(u"space"_s);
}

bool WindowDriver::close()
{
    return m_display.activate(m_window) && press(u"alt+F4"_s);
}

bool WindowDriver::goTo(Stop stop)
{
    if (!m_display.activate(m_window))
        return false;
    // Away and back, because only a move shows that the window really has the keyboard.
    if (m_stop == stop && !move(stop == Stop::codec ? 1 : -1))
        return false;
    while (m_stop != stop) {
        if (!move(stop > m_stop ? 1 : -1))
            return false;
    }
    return true;
}

// A key may be lost while the keyboard passes from one window to another, so a move counts when it
// can be seen.
bool WindowDriver::move(int step)
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        const QByteArray before = restingPicture();
        if (before.isEmpty() || !press(step > 0 ? u"Tab"_s : u"shift+Tab"_s))
            return false;
        if (QTest::qWaitFor([&] { return m_display.picture(m_area) != before; })) {
            m_stop = static_cast<Stop>(static_cast<int>(m_stop) + step);
            return true;
        }
    }
    qWarning("The Tab key moves nothing.");
    return false;
}

bool WindowDriver::press(const QString &key) const
{
    return m_display.xdotool({u"key"_s, key}).has_value();
}

} // namespace quorvale::test
