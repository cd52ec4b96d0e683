// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <QLocale>

/// Shows the texts of this library in the language that suits `locale` best: the first of its `uiLanguages()` that the
/// library has. These are English, which the texts are written in, and German, Spanish, French and Japanese. Editors
/// that are open change at once. Numbers, and the keys of commands, are the same in all languages.
///
/// Gives false, and the texts are English, where none of the languages is there (the locale "C" has none), where the
/// library was built without its translations, or before there is an application. Each call replaces what the one
/// before has set.
///
/// The translator belongs to the application. One that the host installs later is asked first, so a host may word
/// texts of its own. Buttons and file dialogs that are Qt's come from Qt's translation, "qtbase", which the host loads.
/// To be called on the GUI thread.
CURVEEDITOR_EXPORT bool installCurveEditorTranslation(const QLocale& locale = QLocale());
