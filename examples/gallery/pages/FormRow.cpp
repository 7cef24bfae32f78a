// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "FormRow.h"

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>

namespace {

// As high as its field, where that does not grow: both centre their texts.
class RowLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override { return asHighAsField(QLabel::sizeHint()); }
    QSize minimumSizeHint() const override { return asHighAsField(QLabel::minimumSizeHint()); }

private:
    QSize asHighAsField(QSize size) const
    {
        if (buddy() && !(buddy()->sizePolicy().expandingDirections() & Qt::Vertical))
            size.setHeight(qMax(size.height(), fieldHeight()));
        return size;
    }

    int fieldHeight() const { return qMin(buddy()->sizeHint().height(), buddy()->maximumHeight()); }
};

} // namespace

void addFormRow(QFormLayout *form, const QString &text, QWidget *field)
{
    auto *label = new RowLabel(text);
    label->setBuddy(field);
    form->addRow(label, field);
    if (!(field->sizePolicy().expandingDirections() & Qt::Vertical))
        form->setAlignment(field, Qt::AlignVCenter); // where the text is higher
}
