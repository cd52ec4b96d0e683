// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/DecimalQuestion.h>

#include <curveeditor/canvas/ModalDialog.h>
#include <curveeditor/canvas/WarningBox.h>

#include <QCoreApplication>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

using namespace curveeditor;

namespace {

constexpr int shownRows = 3;
constexpr std::size_t shownColumns = 4;

class DecimalQuestion
{
    Q_DECLARE_TR_FUNCTIONS(DecimalQuestion)

public:
    static QString question(std::string_view text)
    {
        const std::size_t line = TableReader(text).fault().line;
        return tr("Line %1 can be read in two ways. These are the rows from there on:").arg(line) +
               reading(tr("With a decimal comma:"), TableReader(text, TableReader::Decimal::Comma), line) +
               reading(tr("With a decimal point:"), TableReader(text, TableReader::Decimal::Point), line);
    }
    static QString comma() { return tr("Decimal comma"); }
    static QString point() { return tr("Decimal point"); }
    static QString cancel() { return tr("Cancel"); }

private:
    static QString reading(const QString& title, TableReader&& reader, std::size_t firstLine)
    {
        QString text = QStringLiteral("\n\n") + title;
        for (int rows = 0; rows < shownRows && reader.next();) {
            if (reader.line() < firstLine)
                continue;
            text += QStringLiteral("\n    ") + present(reader);
            ++rows;
        }
        return text;
    }

    static QString present(TableReader& reader)
    {
        QLocale locale;
        locale.setNumberOptions(QLocale::OmitGroupSeparator);
        QStringList numbers;
        const std::size_t columns = reader.fields().size();
        for (std::size_t column = 0; column < std::min(columns, shownColumns); ++column) {
            const std::optional<double> number = reader.number(column);
            numbers.append(number ? locale.toString(*number, 'g', QLocale::FloatingPointShortest)
                                  : QStringLiteral("?"));
        }
        if (columns > shownColumns)
            numbers.append(QStringLiteral("..."));
        return numbers.join(QStringLiteral("     "));
    }
};

} // namespace

std::optional<TableReader::Decimal> askForDecimal(QWidget* parent, const QString& title,
                                                  std::string_view text)
{
    ModalDialog<QMessageBox> box(QMessageBox::Question, title, DecimalQuestion::question(text),
                                 QMessageBox::NoButton, parent);
    box->setTextFormat(Qt::PlainText);
    const QAbstractButton* const comma = box->addButton(DecimalQuestion::comma(), QMessageBox::AcceptRole);
    const QAbstractButton* const point = box->addButton(DecimalQuestion::point(), QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(DecimalQuestion::cancel(), QMessageBox::RejectRole));
    makeRoomForTitle(*box);
    if (!box.answer())
        return std::nullopt;
    if (box->clickedButton() == comma)
        return TableReader::Decimal::Comma;
    if (box->clickedButton() == point)
        return TableReader::Decimal::Point;
    return std::nullopt;
}
