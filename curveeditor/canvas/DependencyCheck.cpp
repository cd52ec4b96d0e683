// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/DependencyCheck.h>

#include <curveeditor/model/ParserVarMapper.h>

#include <QString>

QString DependencyCheck::lowerVariableName(const QString& fullName)
{
    return QString::fromStdString(ParserVarMapper::getStoredName(fullName.toStdString()));
}
