// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointTypeTexts.h>

#include <QCoreApplication>

namespace curveeditor {

QString PointTypeTexts::shown(const char* text)
{
    return QCoreApplication::translate("PointType", text);
}

QStringList PointTypeTexts::names()
{
    QStringList names;
    for (const PointType& type : PointTypes::all())
        names += shown(type.name);
    return names;
}

QStringList PointTypeTexts::nodes()
{
    QStringList nodes(qsizetype(PointTypes::all().size()));
    for (const PointType& type : PointTypes::all())
        nodes[type.entry] = shown(type.node);
    return nodes;
}

} // namespace curveeditor
