// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "PropertyForm.h"

#include "FormRow.h"

#include <QtCore/QMetaEnum>
#include <QtGui/QBrush>
#include <QtGui/QPen>
#include <QtGui/QPixmap>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

const int NumberRange = 1000;
const QSize SwatchSize(28, 14); // pixels, unscaled
const int LargestScale = 4; // that a swatch fills its button at, on fine screens too
const QLatin1String ListSeparator(", ");

QColor colorOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QBrush)
        return value.value<QBrush>().color();
    if (value.userType() == QMetaType::QPen)
        return value.value<QPen>().color();
    return value.value<QColor>();
}

QVariant withColor(const QVariant &value, const QColor &color)
{
    if (value.userType() == QMetaType::QBrush)
        return QBrush(color);
    if (value.userType() == QMetaType::QPen) {
        QPen pen = value.value<QPen>();
        pen.setColor(color);
        return pen;
    }
    return color;
}

void showColor(QPushButton *button, const QColor &color)
{
    QPixmap swatch(SwatchSize * LargestScale);
    swatch.fill(color);
    button->setIcon(swatch);
    button->setText(color.alpha() == 0 ? PropertyForm::tr("transparent") : color.name());
}

// "textVisible" is shown as "Text visible".
QString labelOf(const QString &name)
{
    QString label;
    for (const QChar letter : name) {
        if (letter.isUpper())
            label += QLatin1Char(' ');
        label += letter.toLower();
    }
    label[0] = label.at(0).toUpper();
    return label;
}

} // namespace

PropertyForm::PropertyForm(QObject *object, QWidget *parent)
    : QGroupBox(tr("Properties"), parent), m_object(object), m_layout(new QFormLayout(this))
{
    const QMetaObject *meta = object->metaObject();
    const QMetaMethod reader = staticMetaObject.method(staticMetaObject.indexOfSlot("readAll()"));
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (!property.isWritable())
            continue;
        addFormRow(m_layout, labelOf(QString::fromLatin1(property.name())),
                   createControl(property));
        if (property.hasNotifySignal())
            connect(object, property.notifySignal(), this, reader);
    }
}

void PropertyForm::addRow(const QString &label, QWidget *control)
{
    addFormRow(m_layout, label, control);
}

QWidget *PropertyForm::createControl(const QMetaProperty &property)
{
    const QVariant value = property.read(m_object);
    if (property.isEnumType())
        return createEnumControl(property);
    if (property.userType() == QMetaType::Bool) {
        auto *box = new QCheckBox;
        box->setChecked(value.toBool());
        connect(box, &QCheckBox::toggled, this, [=](bool on) { write(property, on); });
        return box;
    }
    if (property.userType() == QMetaType::Int) {
        auto *spin = new QSpinBox;
        spin->setObjectName(QString::fromLatin1(property.name()));
        spin->setRange(-NumberRange, NumberRange);
        spin->setValue(value.toInt());
        connect(spin, qOverload<int>(&QSpinBox::valueChanged), this,
                [=](int number) { write(property, number); });
        return spin;
    }
    if (property.userType() == QMetaType::QString) {
        auto *line = new QLineEdit(value.toString());
        connect(line, &QLineEdit::textChanged, this,
                [=](const QString &text) { write(property, text); });
        return line;
    }
    if (property.userType() == QMetaType::QStringList) {
        auto *line = new QLineEdit(value.toStringList().join(ListSeparator));
        line->setObjectName(QString::fromLatin1(property.name()));
        line->setCursorPosition(0); // a long list is read from its begin
        connect(line, &QLineEdit::textChanged, this, [=](const QString &text) {
            QStringList texts = text.split(QLatin1Char(','));
            for (QString &item : texts)
                item = item.trimmed();
            write(property, texts);
        });
        return line;
    }
    return createColorControl(property);
}

QWidget *PropertyForm::createEnumControl(const QMetaProperty &property)
{
    auto *box = new QComboBox;
    const QMetaEnum values = property.enumerator();
    for (int i = 0; i < values.keyCount(); ++i) {
        const QLatin1String key(values.key(i));
        if (key != QLatin1String("MPenCapStyle")) // a mask
            box->addItem(key, values.value(i));
    }
    box->setCurrentIndex(box->findData(property.read(m_object).toInt()));
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [=] { write(property, box->currentData()); });
    return box;
}

QWidget *PropertyForm::createColorControl(const QMetaProperty &property)
{
    auto *button = new QPushButton;
    button->setIconSize(SwatchSize);
    showColor(button, colorOf(property.read(m_object)));
    connect(button, &QPushButton::clicked, this, [=] {
        const QVariant value = property.read(m_object);
        const QColor color =
            QColorDialog::getColor(colorOf(value), this, QString(), QColorDialog::ShowAlphaChannel);
        if (!color.isValid())
            return;
        write(property, withColor(value, color));
        showColor(button, color);
    });
    return button;
}

void PropertyForm::write(const QMetaProperty &property, const QVariant &value)
{
    property.write(m_object, value);
    readAll();
    Q_EMIT edited();
}

// A range may move a value, and a value may be refused.
void PropertyForm::readAll()
{
    const QList<QSpinBox *> spins = findChildren<QSpinBox *>();
    for (QSpinBox *spin : spins) {
        const QVariant value = m_object->property(spin->objectName().toLatin1().constData());
        if (value.isValid() && !spin->hasFocus())
            spin->setValue(value.toInt());
    }
}
