// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QObject>
#include <QUrl>
#include <QVariantMap>

namespace quorvale {

/// This process among those of the program in a session, of which the first has the window: what
/// the others are to open they hand over to it. As it is here, it is alone. Main thread.
class Instance : public QObject
{
    Q_OBJECT

public:
    enum class Place {
        undecided,
        own,      ///< the window opens here, because no other process shows one that answers
        elsewhere ///< all that was to be done here is done by the process that came first
    };

    explicit Instance(Place place = Place::own) : m_place(place) {}

    Place place() const { return m_place; }

    /// Takes nothing more over from others, because the window has closed.
    virtual void leave() {}

Q_SIGNALS:
    void decided();

    /// Another start has handed these files over, possibly none; its platform data is for the
    /// window, which is to come to the front.
    void handedOver(const QList<QUrl> &files, const QVariantMap &platformData);

protected:
    /// The place is decided.
    void take(Place place)
    {
        m_place = place;
        Q_EMIT decided();
    }

private:
    Place m_place;
};

} // namespace quorvale
