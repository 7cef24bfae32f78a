// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef PROPERTYFORM_H
#define PROPERTYFORM_H

#include <QtCore/QMetaProperty>
#include <QtWidgets/QGroupBox>

class QFormLayout;

/*!
    \class PropertyForm
    \brief A live control for each property that a class declares.

    A control writes the property as it is changed, and follows it where the property tells of its
    changes. Of brushes and pens the colour is edited.
*/
class PropertyForm : public QGroupBox
{
    Q_OBJECT

public:
    /*! Constructs controls for the properties that the class of \a object adds to its base. */
    explicit PropertyForm(QObject *object, QWidget *parent = nullptr);

    /*! Adds a control of the page's own below the others. */
    void addRow(const QString &label, QWidget *control);

public Q_SLOTS:
    /*! Shows what the numbers are now. */
    void readAll();

Q_SIGNALS:
    /*! Emitted when a control has written its property. */
    void edited();

private:
    QWidget *createControl(const QMetaProperty &property);
    QWidget *createEnumControl(const QMetaProperty &property);
    QWidget *createColorControl(const QMetaProperty &property);
    void write(const QMetaProperty &property, const QVariant &value);

    QObject *m_object;
    QFormLayout *m_layout;
};

#endif // PROPERTYFORM_H
