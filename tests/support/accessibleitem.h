// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QList>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace quorvale::test {

/// An item of a program's windows as the program tells assistive technology about it. Each question
/// is put to the program anew; what has gone meanwhile answers with nothing: empty texts, no
/// states.
class AccessibleItem
{
public:
    /// What an item is, by the numbers of the AT-SPI protocol.
    enum class Role : uint {
        none = 0,
        checkBox = 7,
        comboBox = 11,
        dialog = 16,
        frame = 23,
        label = 29,
        list = 31,
        listItem = 32,
        menuBar = 34,
        menuItem = 35,
        progressBar = 42,
        button = 43,
        radioButton = 44,
        scrollBar = 48,
        slider = 51,
        text = 61,
        unknown = 67,
        application = 75,
        heading = 83,
        notification = 101,
    };

    /// What is true of an item, by the bits of the AT-SPI protocol.
    enum class State : uint {
        active = 1,
        checked = 4,
        enabled = 8,
        focusable = 11,
        focused = 12,
        selected = 23,
        sensitive = 24,
        showing = 25,
    };

    using Condition = std::function<bool(const AccessibleItem &)>;

    /// Holds for items of the role whose name is, or at least begins with, the text.
    static Condition named(Role role, const QString &name);
    static Condition beginning(Role role, const QString &nameBeginning);

    AccessibleItem(const QDBusConnection &bus, const QString &service, const QString &path)
        : m_bus(bus), m_service(service), m_path(path)
    {
    }

    /// The program's name on the bus.
    const QString &service() const { return m_service; }

    Role role() const;
    QString name() const;
    QString description() const;
    /// The state's bits.
    quint64 states() const;
    bool is(State state) const { return (states() & bit(state)) != 0; }

    /// Where it is on the screen, in pixels; a null rectangle for what has no place.
    QRect extents() const;

    /// Its number and the bounds of that, for items that have one.
    std::optional<double> value() const { return number("CurrentValue"); }
    std::optional<double> minimum() const { return number("MinimumValue"); }
    std::optional<double> maximum() const { return number("MaximumValue"); }

    /// Its text, for items whose content is one.
    QString text() const;

    /// What can be done with it, by the names that a program uses among programs.
    QStringList actions() const;
    /// Does what is called so. False when there is no such action or the program does not answer.
    bool act(const QString &action) const;
    /// Sets its number, for items that have one.
    void setValue(double value) const;

    QList<AccessibleItem> children() const;

    /// The first item below this one, in the program's order, for which the condition holds. Only
    /// what is shown counts.
    std::optional<AccessibleItem> find(const Condition &condition) const;
    /// All such items.
    QList<AccessibleItem> findAll(const Condition &condition) const;
    QList<AccessibleItem> findAll(Role role) const;

    bool operator==(const AccessibleItem &other) const
    {
        return m_service == other.m_service && m_path == other.m_path;
    }

private:
    static quint64 bit(State state) { return quint64(1) << static_cast<uint>(state); }

    // The answer's arguments; none when there is no answer.
    QVariantList call(const char *interface, const char *method,
                      const QVariantList &arguments = {}) const;
    QVariant property(const char *interface, const char *name) const;
    std::optional<double> number(const char *name) const;
    // Visits what is shown until the visitor has seen enough.
    bool visit(const std::function<bool(const AccessibleItem &)> &hasEnough) const;

    QDBusConnection m_bus;
    QString m_service;
    QString m_path;
};

/// For messages of failed comparisons.
QString toString(const AccessibleItem &item);

/// The tree of items below, a line each.
QString describe(const AccessibleItem &root);

} // namespace quorvale::test
