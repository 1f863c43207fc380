// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "windowdriver.h"
#include "patience.h"

#include "model/option.h"
#include "programrun.h"
#include "virtualdesktop.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvale::test {

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

namespace {

// A control that is shown, can be used and has come to rest. Qt 6.4 tells of no item of QML that it
// is disabled.
bool canBeWorked(const AccessibleItem &item)
{
    if (!item.isAll({State::showing, State::enabled, State::sensitive}))
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
    m_area = m_desktop.display().areaOf(m_window).value_or(QRect());
    const auto isDrawn = [this] { // with more than the blank that a new window is
        const QByteArray picture = m_desktop.display().picture(m_area);
        return !picture.isEmpty() && picture.sliced(4) != picture.chopped(4);
    };
    if (!QTest::qWaitFor(isDrawn, patience)) {
        qWarning("The window stays blank.");
        return false;
    }
    const auto isOnTheBus = [this] {
        m_application = m_desktop.accessibility().application(m_run.id());
        return m_application.has_value();
    };
    if (!QTest::qWaitFor(isOnTheBus, patience)) {
        qWarning("The program does not come to the accessibility bus.");
        return false;
    }
    return waitFor(AccessibleItem::named(Role::button, u"Add Videos"_s)).has_value();
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
    if (!QTest::qWaitFor(isThere, patience))
        qWarning("What is looked for is not there:\n%s", qPrintable(describe(application())));
    return found;
}

bool WindowDriver::waitForNo(const AccessibleItem::Condition &condition) const
{
    if (QTest::qWaitFor([&] { return !application().find(condition); }, patience))
        return true;
    qWarning("What should go stays:\n%s", qPrintable(describe(application())));
    return false;
}

QList<AccessibleItem> WindowDriver::rowsInReadingOrder() const
{
    const auto list = application().find(AccessibleItem::named(Role::list, u"Conversion queue"_s));
    return list ? list->findAll(Role::listItem) : QList<AccessibleItem>();
}

QList<AccessibleItem> WindowDriver::rows() const
{
    QList<std::pair<int, AccessibleItem>> rows;
    for (const AccessibleItem &row : rowsInReadingOrder())
        rows.emplace_back(row.extents().top(), row);
    std::ranges::stable_sort(rows, {}, [](const auto &row) { return row.first; });
    QList<AccessibleItem> sorted;
    for (const auto &[top, row] : rows)
        sorted << row;
    return sorted;
}

QStringList WindowDriver::rowNames() const
{
    return names(rows());
}

QStringList WindowDriver::rowNamesInReadingOrder() const
{
    return names(rowsInReadingOrder());
}

bool WindowDriver::waitForRows(const QStringList &names) const
{
    if (QTest::qWaitFor([&] { return rowNames() == names; }, patience))
        return true;
    qWarning("The rows are %s.", qPrintable(rowNames().join(u", "_s)));
    return false;
}

QString WindowDriver::description(const QString &row) const
{
    const auto item = application().find(AccessibleItem::named(Role::listItem, row));
    return item ? item->description() : QString();
}

bool WindowDriver::waitForDescription(const QString &row, const QString &part) const
{
    if (QTest::qWaitFor([&] { return description(row).contains(part); }, patience))
        return true;
    qWarning("%s: %s", qPrintable(row), qPrintable(description(row)));
    return false;
}

bool WindowDriver::waitForProgress(const QString &row) const
{
    // Any will do: how long one percentage stands is up to the machine.
    const QRegularExpression underWay(u", Converting [1-9]\\d*%"_s);
    if (QTest::qWaitFor([&] { return description(row).contains(underWay); }, patience))
        return true;
    qWarning("%s: %s", qPrintable(row), qPrintable(description(row)));
    return false;
}

std::optional<AccessibleItem> WindowDriver::focused() const
{
    // What holds the item that has the keyboard counts as focused, too.
    const auto items =
        application().findAll([](const AccessibleItem &item) { return item.is(State::focused); });
    return items.isEmpty() ? std::nullopt : std::optional(items.last());
}

bool WindowDriver::click(const AccessibleItem::Condition &condition) const
{
    std::optional<AccessibleItem> item;
    const auto isReady = [&] {
        item = application().find(condition);
        return item && canBeWorked(*item);
    };
    if (QTest::qWaitFor(isReady, patience))
        return clickAt(item->extents().center());
    qWarning("What is to be clicked is not there, or disabled:\n%s",
             qPrintable(describe(application())));
    return false;
}

bool WindowDriver::click(Role role, const QString &name) const
{
    return click(AccessibleItem::named(role, name));
}

bool WindowDriver::clickInRow(const QString &row, const QString &button) const
{
    const auto item = waitFor(AccessibleItem::named(Role::listItem, row));
    return item && click([&](const AccessibleItem &candidate) {
               return candidate.role() == Role::button && candidate.name() == button
                      && item->extents().contains(candidate.extents());
           });
}

bool WindowDriver::act(const QString &action, const AccessibleItem::Condition &condition) const
{
    const auto canAct = [&](const AccessibleItem &item) {
        return condition(item) && item.actions().contains(action);
    };
    const auto item = waitFor(canAct);
    return item && item->act(action);
}

bool WindowDriver::act(const QString &action, Role role, const QString &name) const
{
    return act(action, AccessibleItem::named(role, name));
}

bool WindowDriver::actInRow(const QString &row, const QString &button) const
{
    const auto item = waitFor(AccessibleItem::named(Role::listItem, row));
    const auto found =
        item ? item->find(AccessibleItem::named(Role::button, button)) : std::nullopt;
    if (found && found->act(u"Press"_s))
        return true;
    qWarning("The row has no such button, or none that can be pressed:\n%s",
             item ? qPrintable(describe(*item)) : "");
    return false;
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
    if (panel)
        return m_desktop.display().activate(*panel);
    qWarning("What is there is this:\n%s", qPrintable(describe(application())));
    return false;
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

bool WindowDriver::chooseCodec(OutputCodec codec) const
{
    const auto button = AccessibleItem::named(Role::radioButton, rawValue(codec));
    return click(button) && waitFor([&](const AccessibleItem &item) {
               return button(item) && item.is(State::checked);
           });
}

bool WindowDriver::convert(int videos) const
{
    return click(AccessibleItem::beginning(Role::button, u"Convert %1 Video"_s.arg(videos)));
}

bool WindowDriver::resizeBy(const QPoint &offset) const
{
    const VirtualDisplay &display = m_desktop.display();
    const QPoint start = display.areaOf(m_window).value_or(m_area).bottomRight() - QPoint(20, 20);
    const QPoint end = start + offset;
    const auto at = [](const QPoint &place) {
        return QStringList{u"mousemove"_s, QString::number(place.x()), QString::number(place.y())};
    };
    const QStringList rest{u"sleep"_s, u"0.1"_s};
    const QStringList press{u"keydown"_s, u"alt"_s, u"mousedown"_s, u"3"_s};
    const QStringList release{u"mouseup"_s, u"3"_s, u"keyup"_s, u"alt"_s};
    return activate()
           && display.xdotool(at(start) + press + rest + at((start + end) / 2) + rest + at(end)
                              + rest + release)
           && display.parkMouse();
}

bool WindowDriver::close() const
{
    return activate() && press(u"alt+F4"_s);
}

bool WindowDriver::clickAt(const QPoint &place) const
{
    return activate()
           && m_desktop.display().xdotool({u"mousemove"_s, QString::number(place.x()),
                                           QString::number(place.y()), u"click"_s, u"1"_s})
           && m_desktop.display().parkMouse();
}

} // namespace quorvale::test
