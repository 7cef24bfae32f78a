// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"
#include "Scaling.h"

#include "KestComboBox.h"
#include "KestIPAddressEdit.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QKeySequenceEdit>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTextEdit>

namespace {

using namespace Poses;

const int TextWidth = 150; // pixels
const int TextHeight = 56; // pixels
const QString Normal = QStringLiteral("normal");

template <typename Edit>
QWidget *createEdit()
{
    auto *edit = new Edit;
    edit->setFixedWidth(TextWidth);
    return edit;
}

QWidget *createLineEdit()
{
    QWidget *const edit = createEdit<QLineEdit>();
    edit->setProperty("text", QStringLiteral("Some text"));
    return edit;
}

template <typename Edit>
QWidget *createTextEdit()
{
    QWidget *const edit = createEdit<Edit>();
    edit->setFixedHeight(TextHeight);
    edit->setProperty("plainText", QStringLiteral("Some text\nof two lines"));
    return edit;
}

template <typename Combo>
QWidget *createCombo()
{
    auto *combo = new Combo;
    combo->addItems({ QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third") });
    return combo;
}

QWidget *createEditableCombo()
{
    QWidget *const combo = createCombo<QComboBox>();
    combo->setProperty("editable", true);
    return combo;
}

QWidget *createDateEdit()
{
    auto *edit = new QDateEdit(QDate(2026, 11, 21));
    edit->setCalendarPopup(true);
    return edit;
}

void open(QWidget *combo)
{
    static_cast<QComboBox *>(combo)->showPopup();
}

// The pointer over the second entry of the open list; the first one stays the current one.
void openAndHover(QWidget *widget)
{
    open(widget);
    auto *combo = static_cast<QComboBox *>(widget);
    hoverItem(1)(combo->view());
}

void selectText(QWidget *edit)
{
    tabInto(edit);
    QMetaObject::invokeMethod(edit, "selectAll");
}

QVector<SpecimenState> editStates()
{
    const Pose readOnly = property("readOnly");
    return {
        normalState(),
        hoverState(),
        focusState(),
        { QStringLiteral("selected"), selectText, Normal },
        { QStringLiteral("read-only"), readOnly, Normal },
        { QStringLiteral("read-only focus"), both(readOnly, focus()), QStringLiteral("read-only") },
        disabledState(),
        { QStringLiteral("disabled read-only"), both(readOnly, disabled()),
          QStringLiteral("read-only") },
    };
}

QVector<SpecimenState> comboStates()
{
    return {
        normalState(),
        hoverState(),
        focusState(),
        disabledState(),
        { QStringLiteral("open"), open, QString() },
        { QStringLiteral("open hover"), openAndHover, QStringLiteral("open") },
    };
}

QVector<SpecimenState> spinStates()
{
    const Place up = subControl(QStyle::CC_SpinBox, QStyle::SC_SpinBoxUp);
    const Place down = subControl(QStyle::CC_SpinBox, QStyle::SC_SpinBoxDown);
    return {
        normalState(),
        focusState(),
        { QStringLiteral("up hover"), hover(up), Normal },
        { QStringLiteral("up pressed"), press(up), QStringLiteral("up hover") },
        { QStringLiteral("down hover"), hover(down), Normal },
        { QStringLiteral("down pressed"), press(down), QStringLiteral("down hover") },
        disabledState(),
    };
}

SpecimenState readOnlyState()
{
    return { QStringLiteral("read-only"), property("readOnly"), Normal };
}

} // namespace

QVector<Specimen> Specimens::inputs()
{
    const auto placeholder = [](QWidget *widget) {
        auto *edit = static_cast<QLineEdit *>(widget);
        edit->clear();
        edit->setPlaceholderText(QStringLiteral("Some text"));
        lightenPlaceholders(widget->window());
    };
    const auto clearButton = [](QWidget *widget) {
        static_cast<QLineEdit *>(widget)->setClearButtonEnabled(true);
    };
    const auto most = [](QWidget *widget) {
        auto *spin = static_cast<QSpinBox *>(widget);
        spin->setValue(spin->maximum());
    };
    const auto least = [](QWidget *widget) {
        auto *spin = static_cast<QSpinBox *>(widget);
        spin->setValue(spin->minimum());
    };
    const auto createSpinBox = [] {
        auto *spin = new QSpinBox;
        spin->setValue(42);
        return spin;
    };
    const auto createAddress = [] {
        auto *edit = new KestIPAddressEdit;
        edit->setIPAddress(QStringLiteral("192.168.0.1"));
        return edit;
    };
    const auto hoverDropDown = hover(subControl(QStyle::CC_ComboBox, QStyle::SC_ComboBoxArrow));
    return {
        { QStringLiteral("QLineEdit"), createLineEdit,
          editStates()
              + QVector<SpecimenState> {
                  { QStringLiteral("placeholder"), placeholder, Normal },
                  { QStringLiteral("clear button"), clearButton, Normal },
              } },
        { QStringLiteral("QTextEdit"), createTextEdit<QTextEdit>, editStates() },
        { QStringLiteral("QPlainTextEdit"), createTextEdit<QPlainTextEdit>, editStates() },
        { QStringLiteral("QComboBox"), createCombo<QComboBox>, comboStates() },
        { QStringLiteral("QComboBox editable"), createEditableCombo,
          comboStates()
              + QVector<SpecimenState> {
                  { QStringLiteral("drop-down hover"), hoverDropDown, Normal } } },
        { QStringLiteral("KestComboBox"), createCombo<KestComboBox>, comboStates() },
        { QStringLiteral("QSpinBox"), createSpinBox,
          spinStates()
              + QVector<SpecimenState> {
                  readOnlyState(),
                  { QStringLiteral("most"), most, Normal },
                  { QStringLiteral("least"), least, Normal },
              } },
        { QStringLiteral("QDoubleSpinBox"), [] { return new QDoubleSpinBox; },
          { normalState(), focusState(), disabledState() } },
        { QStringLiteral("QTimeEdit"), [] { return new QTimeEdit(QTime(10, 30)); }, spinStates() },
        { QStringLiteral("QDateEdit calendar"), createDateEdit,
          { normalState(), hoverState(), focusState(), disabledState() } },
        { QStringLiteral("QKeySequenceEdit"), createEdit<QKeySequenceEdit>,
          { normalState(), focusState(), disabledState() } },
        { QStringLiteral("KestIPAddressEdit"), createAddress,
          { normalState(), hoverState(), focusState(), readOnlyState(), disabledState() } },
    };
}
