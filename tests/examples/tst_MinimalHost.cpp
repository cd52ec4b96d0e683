// SPDX-License-Identifier: MIT
// The host of the README under another name.
#define main minimalHost
#include <examples/minimal_host/main.cpp>
#undef main

#include <support/Test.h>

#include <cstdio>
#include <unistd.h>

void drive()
{
    const QWidgetList widgets = QApplication::allWidgets();
    QWidget* const canvas = *std::find_if(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        return widget->objectName() == "functionEdit";
    });
    if (!QTest::qWaitForWindowExposed(canvas->window()))
        return QApplication::exit(1);
    const QPoint point(canvas->width() / 2, canvas->height() / 6); // at 5 and 2
    QTest::mousePress(canvas, Qt::LeftButton, {}, point);
    const QPointF place(point.x(), canvas->height() / 2.0);
    QMouseEvent move(QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(canvas, &move);
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, place.toPoint());
    const double time = canvas->window()->findChild<QLineEdit*>("posX")->text().toDouble();
    auto* const line = canvas->window()->findChild<QLineEdit*>("commandLine");
    line->setText("2t");
    QTest::keyClick(line, Qt::Key_Return);
    QApplication::exit(std::abs(time - 5.0) < 0.1 ? 0 : 1); // not frames
}

void driveSoon()
{
    QTimer::singleShot(0, qApp, &drive);
}
Q_COREAPP_STARTUP_FUNCTION(driveSoon)

int main(int argc, char* argv[])
{
    QTemporaryFile output;
    if (!output.open() || dup2(output.handle(), STDOUT_FILENO) < 0)
        return 1;
    const int status = minimalHost(argc, argv);
    output.seek(0);
    const QByteArray told = output.readAll();
    std::fprintf(stderr, "%s", told.constData());
    double value = 2.0;
    const bool isTold = std::sscanf(told.constData(), "Camera.zoom is now %lf at 5\n", &value) == 1;
    const bool isFormulaTold = told.endsWith("Camera.zoom is now 2*t\n");
    return status == 0 && isTold && std::abs(value) < 0.1 && isFormulaTold ? 0 : 1;
}
