// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "announcer.h"

namespace quorvale {

namespace {

// A sentence as something of the window that is shown, but among the parts of none, so that who
// goes through the window does not come to it. Its role is the one that Orca reads out wherever the
// keyboard is: of an alert it reads nothing in a program of Qt's, and Qt 6.4 has no announcements.
class Announcement : public QAccessibleInterface
{
public:
    Announcement(QWindow &window, const QString &sentence) : m_window(window), m_sentence(sentence)
    {
    }

    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_sentence : QString();
    }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(&m_window);
    }

    bool isValid() const override { return true; }
    QObject *object() const override { return nullptr; }
    QRect rect() const override { return {}; }
    void setText(QAccessible::Text, const QString &) override {}
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

private:
    QWindow &m_window;
    const QString m_sentence;
};

} // namespace

Announcer::~Announcer()
{
    for (const QAccessible::Id id : std::as_const(m_said))
        QAccessible::deleteAccessibleInterface(id);
}

void Announcer::announce(const QString &sentence)
{
    if (!QAccessible::isActive())
        return;
    // A reader is told that there is something, and asks what when it comes to that.
    auto *announcement = new Announcement(m_window, sentence); // belongs to Qt from here on
    m_said.enqueue(QAccessible::registerAccessibleInterface(announcement));
    QAccessibleEvent event(announcement, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
    constexpr qsizetype mostKept = 100;
    if (m_said.size() > mostKept)
        QAccessible::deleteAccessibleInterface(m_said.dequeue());
}

} // namespace quorvale
