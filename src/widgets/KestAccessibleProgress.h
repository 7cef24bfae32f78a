// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTACCESSIBLEPROGRESS_H
#define KESTACCESSIBLEPROGRESS_H

#include <QtWidgets/QAccessibleWidget>

/*!
    \class KestAccessibleProgress
    \brief What assistive technology reads of a widget that shows progress.

    Value and range are those of the widget's properties \c value, \c minimum and \c maximum, so
    that one class serves every kind of progress bar. They can be read, not changed: progress is
    the program's.
*/
class KestAccessibleProgress : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit KestAccessibleProgress(QWidget *widget);
    ~KestAccessibleProgress() override;

    /*! Makes the accessibility framework ask this class for the progress bars of this library. For
        each of them, since an application may be followed by another one. */
    static void install();
    /*! Tells assistive technology, if there is any, that \a widget shows \a value now. */
    static void announceValue(QWidget *widget, int value);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override;
};

#endif // KESTACCESSIBLEPROGRESS_H
