// What the run form's controls are called for screen readers, and what their tooltips say.

#include "RunFormView.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tavvel::gui {

namespace {

void describe(QWidget* control, const QString& name, const QString& tip) {
    control->setAccessibleName(name);
    control->setToolTip(tip);
}

} // namespace

void RunFormView::describeControls() {
    describe(inputFrom_, tr("Input"), tr("The statement being converted"));
    describe(qifType_, tr("QIF input type"),
             tr("How the QIF file is read: as it is, with the signs of amounts reversed, or with "
                "description and memo swapped"));
    describe(qfxType_, tr("QFX input type"),
             tr("How the OFX or QFX file is read: as it is, or with description and memo "
                "swapped"));
    describe(inputFormat_, tr("Input format"),
             tr("The layout the text statement is read with; type a new name to learn one"));
    describe(accountType_, tr("Account type"), tr("The kind of account the statement is for"));
    describe(account_, tr("Account"), tr("The account the transactions are written for"));
    const QString ranges[] = {tr("Every transaction in the statement"),
                              tr("The transactions of last month"),
                              tr("The transactions between the two dates, both included")};
    for (int tag = 0; tag < 3; ++tag)
        if (QAbstractButton* button = range_->button(tag))
            describe(button, button->text().remove(QLatin1Char(':')), ranges[tag]);
    describe(dateFrom_, tr("From date"), tr("The first day of the range"));
    describe(dateTo_, tr("To date"), tr("The last day of the range"));
    describe(outputFormat_, tr("Output format"), tr("QIF, or a delimited layout you defined"));
    describe(sameDate_, tr("Same date"), tr("Write every transaction with the date beside"));
    describe(outputDate_, tr("Output date"), tr("The date every transaction is written with"));
    describe(sameNumber_, tr("Same number"), tr("Write every transaction with the number beside"));
    describe(outputNumber_, tr("Output number"),
             tr("The number every transaction is written with"));
    describe(appendSwitch_, tr("Append"), tr("Add to an existing file instead of a new one"));
    describe(appendPopUp_, tr("Append to"), tr("The file the transactions are added to"));
    describe(process_, tr("Process Transactions"),
             tr("Convert the statement and write the output file (Ctrl+Return)"));
}

} // namespace tavvel::gui
