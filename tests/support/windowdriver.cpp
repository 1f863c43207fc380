// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "windowdriver.h"

#include "patience.h"
#include "programrun.h"
#include "virtualdesktop.h"

#include <QMultiMap>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvale::test {

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

namespace {

// A control that is shown, can be used and has come to rest. Qt 6.4 tells of no item of QML that it
// is disabled.
bool canBeWorked(const AccessibleItem &item)
{
    if (!item.is(State::showing) || !item.is(State::enabled) || !item.is(State::sensitive))
        return false;
    const QRect extents = item.extents();
    QTest::qWait(60);
    return !extents.isEmpty() && item.extents() == extents;
}

QStringList names(const QList<AccessibleItem> &items)
{
    QStringList names;
    for (const AccessibleItem &item : items)
        names << item.name();
    return names;
}

} // namespace

bool WindowDriver::find()
{
    m_window = m_desktop.display().waitForWindow(u"Quorvale"_s).value_or(QString());
    if (m_window.isEmpty())
        return false;
    m_area = m_desktop.display().areaOf(m_window);
    const auto isDrawn = [this] { // with more than the blank that a new window is
        const QByteArray picture = m_desktop.display().picture(m_area);
        return !picture.isEmpty() && picture.sliced(4) != picture.chopped(4);
    };
    const auto isOnTheBus = [this] {
        m_application = m_desktop.application(m_run.id());
        return m_application.has_value();
    };
    return waitUntil(isDrawn, u"a drawn window"_s)
           && waitUntil(isOnTheBus, u"the program on the accessibility bus"_s)
           && waitFor(AccessibleItem::named(Role::button, u"Add Videos"_s));
}

bool WindowDriver::waitUntil(const std::function<bool()> &isSo, const QString &awaited) const
{
    if (QTest::qWaitFor(isSo, patience))
        return true;
    qWarning("This does not come: %s. There is this:\n%s", qPrintable(awaited),
             m_application ? qPrintable(describe(*m_application)) : "nothing");
    return false;
}

QByteArray WindowDriver::restingPicture() const
{
    return m_desktop.display().restingPicture(m_area);
}

std::optional<AccessibleItem>
WindowDriver::waitFor(const AccessibleItem::Condition &condition) const
{
    std::optional<AccessibleItem> found;
    const auto isThere = [&] {
        found = application().find(condition);
        return found.has_value();
    };
    waitUntil(isThere, u"what is looked for"_s);
    return found;
}

bool WindowDriver::waitForNo(const AccessibleItem::Condition &condition) const
{
    return waitUntil([&] { return !application().find(condition); }, u"the end of what is there"_s);
}

QStringList WindowDriver::rowNamesInReadingOrder() const
{
    return names(rows());
}

QStringList WindowDriver::rowNames() const
{
    QMultiMap<int, AccessibleItem> rowsByPlace;
    for (const AccessibleItem &row : rows())
        rowsByPlace.insert(row.extents().top(), row);
    return names(rowsByPlace.values());
}

QList<AccessibleItem> WindowDriver::rows() const
{
    const auto list = application().find(AccessibleItem::named(Role::list, u"Conversion queue"_s));
    return list ? list->findAll(Role::listItem) : QList<AccessibleItem>();
}

bool WindowDriver::waitForRows(const QStringList &names) const
{
    return waitUntil([&] { return rowNames() == names; }, u"the rows "_s + names.join(u' '));
}

QString WindowDriver::description(const QString &row) const
{
    const auto item = application().find(AccessibleItem::named(Role::listItem, row));
    return item ? item->description() : QString();
}

bool WindowDriver::waitForDescription(const QString &row, const QString &part) const
{
    return waitUntil([&] { return description(row).contains(part); }, row + part);
}

bool WindowDriver::waitForProgress(const QString &row) const
{
    // Any will do: how long one percentage stands is up to the machine.
    const QRegularExpression underWay(u", Converting [1-9]\\d*%"_s);
    return waitUntil([&] { return description(row).contains(underWay); }, u"progress of "_s + row);
}

std::optional<AccessibleItem> WindowDriver::focused() const
{
    // What holds the item that has the keyboard counts as focused, too.
    const auto items =
        application().findAll([](const AccessibleItem &item) { return item.is(State::focused); });
    return items.isEmpty() ? std::nullopt : std::optional(items.last());
}

std::optional<AccessibleItem> WindowDriver::inRow(const QString &row, const QString &button) const
{
    std::optional<AccessibleItem> found;
    const auto isThere = [&] {
        const auto item = application().find(AccessibleItem::named(Role::listItem, row));
        found = item ? item->find(AccessibleItem::named(Role::button, button)) : std::nullopt;
        return found.has_value();
    };
    waitUntil(isThere, row + u' ' + button);
    return found;
}

bool WindowDriver::click(const AccessibleItem::Condition &condition) const
{
    std::optional<AccessibleItem> item;
    const auto isReady = [&] {
        item = application().find(condition);
        return item && canBeWorked(*item);
    };
    return waitUntil(isReady, u"what is to be clicked"_s) && activate()
           && mouse(item->extents().center(), {u"click"_s, u"1"_s})
           && m_desktop.display().parkMouse();
}

bool WindowDriver::clickInRow(const QString &row, const QString &button) const
{
    const auto item = inRow(row, button);
    return item && click([&](const AccessibleItem &candidate) { return candidate == *item; });
}

bool WindowDriver::act(const QString &action, const AccessibleItem::Condition &condition) const
{
    const auto item = waitFor([&](const AccessibleItem &candidate) {
        return condition(candidate) && candidate.actions().contains(action);
    });
    return item && item->act(action);
}

bool WindowDriver::actInRow(const QString &row, const QString &button) const
{
    const auto item = inRow(row, button);
    return item && item->act(u"Press"_s);
}

bool WindowDriver::dragRow(const QString &row, const QString &other) const
{
    const auto from = waitFor(AccessibleItem::named(Role::listItem, row));
    const auto to = waitFor(AccessibleItem::named(Role::listItem, other));
    if (!from || !to || !activate())
        return false;
    const QPoint begin = from->extents().center();
    const QPoint end = to->extents().center();
    bool isWorked = mouse(begin, {u"mousedown"_s, u"1"_s});
    constexpr int steps = 10;
    for (int step = 1; step <= steps && isWorked; ++step) {
        QTest::qWait(20); // as a hand does
        isWorked = mouse(begin + (end - begin) * step / steps);
    }
    return isWorked;
}

bool WindowDriver::releaseRow() const
{
    return m_desktop.display().xdotool({u"mouseup"_s, u"1"_s}) && m_desktop.display().parkMouse();
}

bool WindowDriver::press(const QString &key) const
{
    return m_desktop.display().xdotool({u"key"_s, key}).has_value();
}

bool WindowDriver::activate() const
{
    return m_desktop.display().activate(m_window);
}

bool WindowDriver::tabTo(const AccessibleItem::Condition &condition) const
{
    constexpr int enough = 40;
    for (int step = 0; step < enough; ++step) {
        const auto item = focused();
        if (item && condition(*item))
            return true;
        if (!press(u"Tab"_s) || !QTest::qWaitFor([&] { return focused() != item; }, patience))
            break;
    }
    qWarning("Tab does not lead there.");
    return false;
}

bool WindowDriver::openPanel(const QString &title) const
{
    const auto panel = m_desktop.display().waitForWindow(title);
    return panel && m_desktop.display().activate(*panel);
}

bool WindowDriver::enter(const QString &text) const
{
    const auto field = waitFor([](const AccessibleItem &item) {
        return item.role() == Role::text && item.is(State::focused);
    });
    // On a busy machine keys get lost.
    for (int attempt = 0; field && attempt < 5; ++attempt) {
        if (!press(u"ctrl+a"_s)
            || !m_desktop.display().xdotool({u"type"_s, u"--delay"_s, u"5"_s, text}))
            return false;
        if (QTest::qWaitFor([&] { return field->text() == text; }))
            return true;
    }
    qWarning("The text cannot be entered: %s", field ? qPrintable(field->text()) : "no field");
    return false;
}

bool WindowDriver::answerPanel(const QString &title, const QString &path) const
{
    if (!openPanel(title) || !enter(path))
        return false;
    // The first Return may go to the list that offers completions.
    return pressUntilClosed(u"Return"_s, title);
}

bool WindowDriver::abandonPanel(const QString &title) const
{
    return openPanel(title) && pressUntilClosed(u"Escape"_s, title);
}

bool WindowDriver::pressUntilClosed(const QString &key, const QString &title) const
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (!press(key))
            return false;
        if (m_desktop.display().waitForNoWindow(title, 3000))
            return true;
    }
    qWarning("The panel does not close.");
    return false;
}

bool WindowDriver::chooseOutputFolder(const QString &folder) const
{
    return click(AccessibleItem::beginning(Role::button, u"Save to "_s))
           && answerPanel(u"Choose output folder"_s, folder)
           && waitFor(AccessibleItem::named(Role::button, u"Save to "_s + folder));
}

bool WindowDriver::convert(int videos) const
{
    return click(AccessibleItem::beginning(Role::button, u"Convert %1 Video"_s.arg(videos)));
}

bool WindowDriver::close() const
{
    return activate() && press(u"alt+F4"_s);
}

bool WindowDriver::mouse(const QPoint &place, const QStringList &work) const
{
    const QStringList move{u"mousemove"_s, QString::number(place.x()), QString::number(place.y())};
    return m_desktop.display().xdotool(move + work).has_value();
}

} // namespace quorvale::test
