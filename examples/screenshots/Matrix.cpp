// SPDX-License-Identifier: MIT
#include "Matrix.h"

#include "DarkPalette.h"
#include "GuideScene.h"

#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/Translations.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLibraryInfo>
#include <QPainter>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <functional>

namespace {

constexpr std::array languages = {"en", "de", "es", "fr", "ja"};
constexpr std::array sizes = {QSize(640, 480), QSize(1040, 640), QSize(1920, 1000)};
constexpr std::array fontSizes = {9, 13, 20};

enum Page { Nodes, Formula, Points };

void show(GuideScene& scene, const QSize& size, Page page)
{
    scene.editor().resize(size);
    scene.editor().tabWidget2->setCurrentIndex(page);
    QApplication::processEvents();
}

/// The modal dialog that `open` opens, below its title, which is as a frame of the desktop writes it.
QPixmap dialogOf(const std::function<void()>& open)
{
    QPixmap picture;
    QTimer::singleShot(100, [&picture] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        QFont font = QApplication::font("QTitleBar");
        font.setBold(true);
        const int titleHeight = 2 * QFontMetrics(font).height();
        picture = QPixmap((dialog->size() + QSize(0, titleHeight)) * dialog->devicePixelRatio());
        picture.setDevicePixelRatio(dialog->devicePixelRatio());
        picture.fill(Qt::darkGray);
        QPainter painter(&picture);
        painter.setFont(font);
        painter.drawText(QRect(0, 0, dialog->width(), titleHeight), Qt::AlignCenter, dialog->windowTitle());
        painter.drawPixmap(0, titleHeight, dialog->grab());
        dialog->reject();
    });
    open();
    const bool isDrawn = QTest::qWaitFor([&picture] { return !picture.isNull(); }, 1000);
    return isDrawn ? picture : QPixmap();
}

/// All of them in rows.
QPixmap sheetOf(const QList<QPixmap>& pictures)
{
    constexpr int width = 2400;
    constexpr int gap = 16;
    QPixmap sheet(QSize(width, 1400) * qApp->devicePixelRatio());
    sheet.setDevicePixelRatio(qApp->devicePixelRatio());
    sheet.fill(Qt::lightGray);
    QPainter painter(&sheet);
    QPoint place(gap, gap);
    int lowest = 0;
    for (const QPixmap& picture : pictures) {
        const QSize size = picture.deviceIndependentSize().toSize();
        if (place.x() + size.width() + gap > width)
            place = {gap, lowest + gap};
        painter.drawPixmap(place, picture);
        lowest = std::max(lowest, place.y() + size.height());
        place.rx() += size.width() + gap;
    }
    return sheet.copy(0, 0, sheet.width(), int((lowest + gap) * sheet.devicePixelRatio()));
}

} // namespace

bool Matrix::draw()
{
    const QPalette usual = QApplication::palette();
    QTranslator qtTexts;
    bool isDrawn = true;
    constexpr int variants = int(sizes.size() * fontSizes.size());
    for (int language = 0; language < int(languages.size()); ++language) {
        for (int variant = 0; variant < variants; ++variant) {
            const int points = fontSizes[variant % fontSizes.size()];
            const bool isMirrored = (language + variant) % 2 != 0;
            const bool isDark = (language / 2 + variant / 2) % 2 != 0;
            size_ = sizes[variant / fontSizes.size()];
            combination_ = QStringLiteral("%1-%2-%3pt-%4-%5-%6x.png")
                               .arg(languages[language])
                               .arg(size_.width())
                               .arg(points)
                               .arg(isMirrored ? "rtl" : "ltr", isDark ? "dark" : "light")
                               .arg(qApp->devicePixelRatio());
            QFont font = QApplication::font();
            font.setPointSize(points);
            QApplication::setFont(font);
            QApplication::setPalette(isDark ? darkPalette() : usual);
            const QLocale locale(languages[language]);
            installCurveEditorTranslation(locale);
            QCoreApplication::removeTranslator(&qtTexts);
            if (qtTexts.load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
                QCoreApplication::installTranslator(&qtTexts);
            QApplication::setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
            isDrawn = drawPages() && drawDialogs() && isDrawn;
        }
    }
    return isDrawn;
}

bool Matrix::drawPages()
{
    GuideScene bezier({"Camera.tilt", "Camera.focus distance", "Light.flicker", "Camera.pan"});
    GuideScene tcb({"Camera.pan", "Camera.zoom", "Camera.tilt"});
    GuideScene formula({"Observer.x", "Observer.sensor"});
    GuideScene empty({});
    show(bezier, size_, Nodes);
    bezier.selectPoint(1);
    show(tcb, size_, Nodes);
    tcb.selectPoint(1);
    show(formula, size_, Formula);
    show(empty, size_, Nodes);
    const bool areSaved = save(empty.wholeEditor(), "empty") && save(bezier.wholeEditor(), "bezier") &&
                          save(tcb.wholeEditor(), "tcb") && save(formula.wholeEditor(), "expression");
    show(tcb, size_, Points);
    show(bezier, size_, Formula);
    return areSaved && save(tcb.wholeEditor(), "points") && save(bezier.wholeEditor(), "no-expression");
}

bool Matrix::drawDialogs()
{
    GuideScene scene({"Camera.tilt", "Camera.pan"});
    CurveEditor& editor = scene.editor();
    scene.key(Qt::Key_A, Qt::ControlModifier);
    QList<QPixmap> dialogs;
    for (const char* const action : {"setWaveRangeAction", "openScaleSelection", "openPanSelection",
                                     "retimeAction", "easeCssAction", "simplifyAction", "bakeAction"})
        dialogs.append(dialogOf([&editor, action] { editor.action(action)->trigger(); }));
    for (const char* const text : {"7\t0\n9\t1,234\n", "1\t2\nthree\n"}) {
        QApplication::clipboard()->setText(text);
        dialogs.append(dialogOf([&editor] { editor.action("pasteAction")->trigger(); }));
    }
    dialogs.append(dialogOf([&editor] {
        editor.commandLine->setText("sin(");
        QTest::keyClick(editor.commandLine, Qt::Key_Return);
    }));
    return !std::ranges::any_of(dialogs, &QPixmap::isNull) && save(sheetOf(dialogs), "dialogs");
}

bool Matrix::save(const QPixmap& picture, const QString& subject) const
{
    return picture.save(folder_.filePath(subject + u'-' + combination_));
}
