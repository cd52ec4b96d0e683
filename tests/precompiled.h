// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>
#ifdef QT_WIDGETS_LIB
#include <QApplication>
#include <QtWidgets>
#endif

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>
