#include "LearnLayoutDialog.h"

#include "Text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tavvel::gui {

LearnLayoutDialog::LearnLayoutDialog(LearnLayoutForm& form, QWidget* parent)
    : LearnDialog(parent), form_(form) {
    setWindowTitle(qt(form.title));
    auto* layout = new QVBoxLayout(this);
    auto* fields = new QFormLayout;
    auto* choice = new QComboBox(this);
    choice->setObjectName(QStringLiteral("layout"));
    for (std::string_view title : LearnLayoutForm::layoutTitles())
        choice->addItem(qt(title));
    choice->setCurrentIndex(form.layout.choice);
    connect(choice, &QComboBox::activated, this, [this](int index) {
        form_.chooseLayout(index);
        showState();
    });
    fields->addRow(tr("&Layout:"), choice);
    auto* oneLine = new QCheckBox(tr("One transaction per line"), this);
    oneLine->setObjectName(QStringLiteral("oneTransactionPerLine"));
    oneLine->setChecked(form.layout.oneTransactionPerLine);
    connect(oneLine, &QCheckBox::toggled, this, [this](bool on) {
        form_.setOneTransactionPerLine(on);
        showState();
    });
    auto* nonUS = new QCheckBox(tr("Characters beyond ASCII belong to fields"), this);
    nonUS->setObjectName(QStringLiteral("nonUScharacters"));
    nonUS->setChecked(form.layout.nonUScharacters);
    connect(nonUS, &QCheckBox::toggled, this, [this](bool on) {
        form_.setNonUScharacters(on);
        showState();
    });
    fields->addRow(QString(), oneLine);
    fields->addRow(QString(), nonUS);
    layout->addLayout(fields);
    auto* hint =
        new QLabel(tr("Choose the layout that puts every field in a column of its own."), this);
    hint->setWordWrap(true);
    layout->addWidget(hint);
    preview_ = new QTableWidget(this);
    preview_->setObjectName(QStringLiteral("preview"));
    setUpPreview(*preview_);
    layout->addWidget(preview_, 1);

    auto* buttons = new QDialogButtonBox(this);
    addButton(buttons, tr("Cancel"), LearnAction::cancel);
    addButton(buttons, tr("Back"), LearnAction::back);
    addButton(buttons, tr("OK"), LearnAction::ok)->setDefault(true);
    layout->addWidget(buttons);
    showState();
}

void LearnLayoutDialog::showState() {
    showPreview(*preview_, form_.preview);
}

} // namespace tavvel::gui
