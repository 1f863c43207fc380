// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "colorscheme.h"

#include <QObject>
#include <QPointer>
#include <QtQmlIntegration>

namespace quorvale {

/// The colours that an item or a popup is drawn in, as an attached property: those that were given
/// to it, else those of what it stands in. A window's content has to be given some. Main thread.
class Scheme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is an attached property.")
    QML_ATTACHED(quorvale::Scheme)
    Q_PROPERTY(quorvale::ColorScheme *colors READ colors WRITE setColors NOTIFY changed)

public:
    explicit Scheme(QObject *owner);

    static Scheme *qmlAttachedProperties(QObject *owner) { return new Scheme(owner); }

    ColorScheme *colors() const;
    void setColors(ColorScheme *colors);

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void follow();

private:
    ColorScheme *m_given = nullptr; // of the theme, which outlives it
    QPointer<Scheme> m_outer;
};

} // namespace quorvale
