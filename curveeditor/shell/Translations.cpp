// SPDX-License-Identifier: MIT
#include <curveeditor/shell/Translations.h>

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>

#include <memory>

/// Nothing in a build without translations. The macro refuses namespaces.
static void loadResource()
{
#ifdef CURVEEDITOR_HAS_TRANSLATIONS
    Q_INIT_RESOURCE(curveeditor_translations); // a static library does not do it by itself
#endif
}

namespace {

QPointer<QTranslator> installed;

void replaceTranslator(QTranslator* translator)
{
    QTranslator* const former = installed;
    installed = translator;
    if (translator)
        QCoreApplication::installTranslator(translator);
    delete former; // takes it out of the application too
}

} // namespace

bool installCurveEditorTranslation(const QLocale& locale)
{
    if (!QCoreApplication::instance())
        return false;
    loadResource();
    auto translator = std::make_unique<QTranslator>();
    const QStringList languages = locale.uiLanguages();
    for (const QString& name : languages) {
        const QString language = name.section(QLatin1Char('-'), 0, 0);
        const bool isEnglish = language == QLatin1String("en");
        if (!isEnglish && !translator->load(QStringLiteral(":/curveeditor/curveeditor_%1.qm").arg(language)))
            continue;
        if (!isEnglish)
            translator->setParent(QCoreApplication::instance());
        replaceTranslator(isEnglish ? nullptr : translator.release());
        return true;
    }
    replaceTranslator(nullptr);
    return false;
}
