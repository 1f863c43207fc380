// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "accessibleprogress.h"

#include "focusitem.h"
#include "progressitem.h"

#include <QtQuick/private/qaccessiblequickitem_p.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

class AccessibleBar : public QAccessibleQuickItem
{
public:
    explicit AccessibleBar(ProgressItem &bar) : QAccessibleQuickItem(&bar), m_bar(bar) {}

    QVariant currentValue() const override { return m_bar.fraction(); }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return 1.0; }
    QVariant minimumStepSize() const override { return 0.0; }
    void setCurrentValue(const QVariant &) override {}

protected:
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface && !m_bar.isIndeterminate())
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleQuickItem::interface_cast(type);
    }

private:
    const ProgressItem &m_bar;
};

class AccessibleRow : public QAccessibleQuickItem
{
public:
    explicit AccessibleRow(FocusItem &row) : QAccessibleQuickItem(&row), m_row(row) {}

    QString text(QAccessible::Text kind) const override
    {
        QString text = QAccessibleQuickItem::text(kind);
        if (kind != QAccessible::Description || !(m_row.fraction() >= 0))
            return text;
        return u"%1 %2%"_s.arg(text).arg(static_cast<int>(std::min(m_row.fraction(), 1.0) * 100));
    }

private:
    const FocusItem &m_row;
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    std::unique_ptr<QAccessibleQuickItem> made;
    if (className == QLatin1StringView(ProgressItem::staticMetaObject.className()))
        made = std::make_unique<AccessibleBar>(*static_cast<ProgressItem *>(object));
    else if (className == QLatin1StringView(FocusItem::staticMetaObject.className()))
        made = std::make_unique<AccessibleRow>(*static_cast<FocusItem *>(object));
    return made && made->isAccessible() ? made.release() : nullptr;
}

} // namespace

void offerAccessibleProgress()
{
    static const bool isOffered = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isOffered)
}

} // namespace quorvale
