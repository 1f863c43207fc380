// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QQuickItem>
#include <QtQmlIntegration>

namespace quorvale {

/// An item that shows how much of something is done. Assistive technology reads that when it asks,
/// and is not told of every change. Main thread.
class ProgressItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// From 0 to 1. Not called value: of a property with that name Qt tells every change.
    Q_PROPERTY(double fraction MEMBER m_fraction NOTIFY fractionChanged)
    /// Whether it is not known.
    Q_PROPERTY(bool indeterminate MEMBER m_indeterminate NOTIFY indeterminateChanged)

public:
    explicit ProgressItem(QQuickItem *parent = nullptr);

    double fraction() const { return m_fraction; }
    bool isIndeterminate() const { return m_indeterminate; }

Q_SIGNALS:
    void fractionChanged();
    void indeterminateChanged();

private:
    double m_fraction = 0.0;
    bool m_indeterminate = false;
};

} // namespace quorvale
