// SPDX-License-Identifier: MIT
// What a host calls its own and the library has inside, too: a static library must not bring both into one name.
#include <string>

class QWidget;
class QString;

struct Gesture
{
    void end();
    void cancel();
};

struct Selection
{
    void selectOnly(unsigned point);
};

struct Snap
{
    std::string name() const;
    unsigned kinds = 0;
};

void showWarning(QWidget* parent, const QString& title, const QString& text);

void Gesture::end() {}
void Gesture::cancel() {}
void Selection::selectOnly(unsigned /*point*/) {}
std::string Snap::name() const
{
    return "snap";
}
void showWarning(QWidget* /*parent*/, const QString& /*title*/, const QString& /*text*/) {}
