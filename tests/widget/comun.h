// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>
#include <QString>

// The item of that objectName at or below the given one, shown or not;
// null when there is none.
inline QQuickItem* buscar(QQuickItem* item, const QString& nombre)
{
    if (item == nullptr || item->objectName() == nombre)
        return item;
    for (QQuickItem* h : item->childItems())
        if (QQuickItem* r = buscar(h, nombre))
            return r;
    return nullptr;
}
