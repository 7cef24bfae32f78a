// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef RECORDINGSTYLE_H
#define RECORDINGSTYLE_H

#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionToolButton>

/*! The Fusion style, with notes of what it was asked to draw, and answers that a test can choose.
 */
class RecordingStyle : public QProxyStyle
{
public:
    RecordingStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion"))) { }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override
    {
        if (const auto *tool = qstyleoption_cast<const QStyleOptionToolButton *>(option)) {
            complexControl = control;
            toolButton = *tool;
        }
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_PushButton) {
            pushButton = *qstyleoption_cast<const QStyleOptionButton *>(option);
            ++pushButtonsDrawn;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_IndicatorToolBarSeparator) {
            separatorRect = option->rect;
            separatorState = option->state;
            separatorWidget = widget;
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    void drawItemPixmap(QPainter *painter, const QRect &rect, int alignment,
                        const QPixmap &pixmap) const override
    {
        pixmapRect = rect;
        pixmapAlignment = alignment;
        pixmapSize = pixmap.size();
        ++pixmapsDrawn;
        QProxyStyle::drawItemPixmap(painter, rect, alignment, pixmap);
    }

    void drawItemText(QPainter *painter, const QRect &rect, int flags, const QPalette &palette,
                      bool enabled, const QString &text, QPalette::ColorRole role) const override
    {
        textRect = rect;
        textFlags = flags;
        textEnabled = enabled;
        textRole = role;
        drawnText = text;
        QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
    }

    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget) const override
    {
        if (element == SE_FrameContents && frameContents.isValid())
            return frameContents;
        return QProxyStyle::subElementRect(element, option, widget);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override
    {
        if (metric == PM_ToolBarSeparatorExtent) {
            metricWidget = widget;
            metricState = option ? option->state : State_None;
            return separatorExtent;
        }
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    void polish(QWidget *widget) override
    {
        polished.append(widget);
        QProxyStyle::polish(widget);
    }

    void unpolish(QWidget *widget) override
    {
        unpolished.append(widget);
        QProxyStyle::unpolish(widget);
    }

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    QRect frameContents;
    int separatorExtent = 7;

    mutable ComplexControl complexControl = CC_CustomBase;
    mutable QStyleOptionToolButton toolButton;
    mutable QStyleOptionButton pushButton;
    mutable int pushButtonsDrawn = 0;
    mutable QRect separatorRect;
    mutable State separatorState;
    mutable const QWidget *separatorWidget = nullptr;
    mutable const QWidget *metricWidget = nullptr;
    mutable State metricState;
    mutable QRect pixmapRect;
    mutable int pixmapAlignment = 0;
    mutable QSize pixmapSize;
    mutable int pixmapsDrawn = 0;
    mutable QRect textRect;
    mutable int textFlags = 0;
    mutable bool textEnabled = false;
    mutable QPalette::ColorRole textRole = QPalette::NColorRoles;
    mutable QString drawnText;
    QList<QWidget *> polished;
    QList<QWidget *> unpolished;
};

#endif // RECORDINGSTYLE_H
