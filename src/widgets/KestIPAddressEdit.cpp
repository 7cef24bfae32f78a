// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestIPAddressEdit.h"

#include "KestAccessibleIPAddressEdit.h"
#include "KestIPAddressEdit_p.h"

#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextOption>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFrame>

#include <algorithm>

namespace {

const int LastSection = SectionCount - 1;
const int EndPosition = SectionCount * SectionPositions; // behind all of them
const int LargestNumber = 255;
const int VerticalMargin = 1; // pixels

const QChar Dot = QLatin1Char('.');

// The room for a section, and for an address. The NUL at their end is measured as well: it stands
// for the room that the cursor needs behind the digits.
const QString SectionTemplate = QStringLiteral(" 000") + QChar();
const QString AddressTemplate = QStringLiteral(" 000 . 000 . 000 . 000") + QChar();

// Text that is no number counts as 0: it is the user's to correct.
bool isAccepted(const QString &text)
{
    return text.isEmpty() || uint(text.toInt()) <= uint(LargestNumber);
}

bool isSection(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return !text.isEmpty() && text.length() <= SectionLength && isNumber
        && uint(number) <= uint(LargestNumber);
}

QTextCharFormat highlight(const QPalette &palette)
{
    QTextCharFormat format;
    format.setBackground(palette.brush(QPalette::Highlight));
    format.setForeground(palette.brush(QPalette::HighlightedText));
    return format;
}

// Whether a key is one that the edit takes as text.
bool isTyping(const QKeyEvent *event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const int key = event->key();
    return (key >= Qt::Key_0 && key <= Qt::Key_9) || key == Qt::Key_Backspace
        || key == Qt::Key_Delete || event->text() == Dot;
}

int dotWidth(const QFontMetrics &metrics)
{
    return metrics.boundingRect(Dot).width();
}

} // namespace

QTextLayout::FormatRange createFormatRange(int a, int b, const QPalette &palette)
{
    const int first = positionInSection(a);
    const int second = positionInSection(b);
    QTextLayout::FormatRange range;
    range.start = std::min(first, second);
    range.length = std::max(first, second) - range.start;
    range.format = highlight(palette);
    return range;
}

int moveFormatRange(QTextLayout::FormatRange &range, int from, int to)
{
    const int moved = positionInSection(from);
    const int target = positionInSection(to);
    const int end = range.start + range.length;
    int anchor = moved;
    if (range.length > 0 && moved == range.start)
        anchor = end;
    else if (range.length > 0 && moved == end)
        anchor = range.start;
    range.start = std::min(anchor, target);
    range.length = std::max(anchor, target) - range.start;
    return target;
}

KestIPAddressEdit::KestIPAddressEdit(QWidget *parent)
    : QWidget(parent), d(new KestIPAddressEditPrivate)
{
    KestAccessibleIPAddressEdit::install();
    setSizePolicy(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed, QSizePolicy::LineEdit));
    setContextMenuPolicy(Qt::CustomContextMenu);
    d->blinkTimer.setInterval(QApplication::cursorFlashTime() / 2);
    setFocusPolicy(Qt::StrongFocus);
    connect(&d->blinkTimer, &QTimer::timeout, this, [this] {
        d->cursorVisible = !d->cursorVisible;
        update();
    });
    connect(this, &QWidget::customContextMenuRequested, this,
            &KestIPAddressEdit::onCustomContextMenuRequested);
    updateTextLayout();
    initActions();
    setReadOnly(d->readOnly);
}

KestIPAddressEdit::~KestIPAddressEdit()
{
    delete d;
}

void KestIPAddressEdit::initActions()
{
    const auto add = [this](const QString &text, QKeySequence::StandardKey key) {
        auto *action = new QAction(text, this);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
        return action;
    };
    d->copyAction = add(tr("Copy"), QKeySequence::Copy);
    connect(d->copyAction, &QAction::triggered, this, &KestIPAddressEdit::copy);
    d->pasteAction = add(tr("Paste"), QKeySequence::Paste);
    connect(d->pasteAction, &QAction::triggered, this, &KestIPAddressEdit::paste);
}

QString KestIPAddressEdit::ipAddress() const
{
    QStringList sections;
    for (const QTextLayout &layout : d->layouts)
        sections.append(layout.text().isEmpty() ? QStringLiteral("0") : layout.text());
    return sections.join(Dot);
}

void KestIPAddressEdit::setIPAddress(const QString &ip)
{
    const QStringList sections = ip.split(Dot);
    if (sections.size() != SectionCount
        || !std::all_of(sections.begin(), sections.end(), isSection))
        return;
    for (int i = 0; i < SectionCount; ++i)
        setText(d->layouts[size_t(i)], sections.at(i));
    update();
}

bool KestIPAddressEdit::isReadOnly() const
{
    return d->readOnly;
}

void KestIPAddressEdit::setReadOnly(bool readOnly)
{
    d->readOnly = readOnly;
    setAttribute(Qt::WA_MacShowFocusRect, !readOnly);
    setAttribute(Qt::WA_InputMethodEnabled, !readOnly);
    setCursor(readOnly ? Qt::ArrowCursor : Qt::IBeamCursor);
    QEvent change(QEvent::ReadOnlyChange);
    QCoreApplication::sendEvent(this, &change);
    update();
    QAccessible::State changed;
    changed.readOnly = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

QSize KestIPAddressEdit::sizeHint() const
{
    return minimumSizeHint();
}

QSize KestIPAddressEdit::minimumSizeHint() const
{
    ensurePolished();
    const QFontMetrics metrics(font());
    const QMargins margins = contentsMargins();
    const int height = metrics.height() + std::max(metrics.leading(), 2 * VerticalMargin)
        + margins.top() + margins.bottom();
    const int width =
        metrics.boundingRect(AddressTemplate).width() + margins.left() + margins.right();
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(width, height), this);
}

void KestIPAddressEdit::initStyleOption(QStyleOptionFrame *option) const
{
    option->initFrom(this);
    option->rect = contentsRect();
    option->lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, option, this);
    option->midLineWidth = 0;
    option->state |= QStyle::State_Sunken;
    if (d->readOnly)
        option->state |= QStyle::State_ReadOnly;
}

void KestIPAddressEdit::updateTextLayout()
{
    for (QTextLayout &layout : d->layouts) {
        layout.setCacheEnabled(true);
        layout.setTextOption(QTextOption(Qt::AlignCenter));
        layout.setFont(font());
        redoTextLayout(layout);
    }
}

// Returns the ascent of the line.
int KestIPAddressEdit::redoTextLayout(QTextLayout &layout)
{
    layout.clearLayout();
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return qRound(line.ascent());
}

int KestIPAddressEdit::sectionOfCursorPosition(int position) const
{
    return std::min(position / SectionPositions, LastSection);
}

QTextLayout &KestIPAddressEdit::textLayout(int position) const
{
    return d->layouts[size_t(sectionOfCursorPosition(position))];
}

bool KestIPAddressEdit::setText(QTextLayout &layout, const QString &text)
{
    if (!isAccepted(text))
        return false;
    const bool announced = QAccessible::isActive();
    const QString before = announced ? ipAddress() : QString();
    layout.setText(text);
    const int ascent = redoTextLayout(layout);
    QStyleOptionFrame option;
    initStyleOption(&option);
    d->cursorAscentOffset = ascent - option.fontMetrics.ascent();
    if (announced)
        KestAccessibleIPAddressEdit::announceText(this, before);
    Q_EMIT editChanged();
    return true;
}

void KestIPAddressEdit::setCursorPosition(int position)
{
    d->cursorPosition = position;
    KestAccessibleIPAddressEdit::announceCursor(this);
}

bool KestIPAddressEdit::hasSelection() const
{
    return std::any_of(d->selections.cbegin(), d->selections.cend(),
                       [](const auto &selection) { return !selection.isEmpty(); });
}

void KestIPAddressEdit::clearSelection()
{
    for (auto &selection : d->selections)
        selection.clear();
}

void KestIPAddressEdit::deleteSelectedText()
{
    for (int section = 0; section < SectionCount; ++section) {
        if (d->selections.at(section).isEmpty())
            continue;
        const QTextLayout::FormatRange range = d->selections.at(section).first();
        QString text = d->text(section);
        text.remove(range.start, range.length);
        setText(d->layouts[size_t(section)], text);
        setCursorPosition(firstPosition(section) + text.length());
    }
    clearSelection();
}

// Moves the cursor to a position of the same section and what is selected there along with it;
// where nothing is, what is between the anchor and the position becomes selected.
void KestIPAddressEdit::selectTo(int position, int anchor)
{
    auto &selection = d->selections[sectionOfCursorPosition(position)];
    if (selection.isEmpty())
        selection.append(createFormatRange(anchor, position, palette()));
    else
        moveFormatRange(selection.first(), d->cursorPosition, position);
    setCursorPosition(position);
}

void KestIPAddressEdit::copy() const
{
    // What is selected in further sections is not copied: a part of an address is no text to paste.
    for (int section = 0; section < SectionCount; ++section) {
        if (d->selections.at(section).isEmpty())
            continue;
        const QTextLayout::FormatRange &range = d->selections.at(section).first();
        QGuiApplication::clipboard()->setText(d->text(section).mid(range.start, range.length));
        return;
    }
}

void KestIPAddressEdit::paste()
{
    const QString pasted = QGuiApplication::clipboard()->text();
    if (d->readOnly || pasted.isEmpty())
        return;
    if (pasted.count(Dot) == SectionCount - 1) {
        setIPAddress(pasted);
        return;
    }

    const int section = sectionOfCursorPosition(d->cursorPosition);
    const int offset = positionInSection(d->cursorPosition);
    QString text = d->text(section);
    int after = offset + 1; // however much was pasted
    if (d->selections.at(section).isEmpty()) {
        text.insert(std::min(offset, text.length()), pasted);
    } else {
        const QTextLayout::FormatRange &range = d->selections.at(section).first();
        text.replace(range.start, range.length, pasted);
        after = range.start + range.length;
    }
    if (text.length() > SectionLength)
        return;
    setText(d->layouts[size_t(section)], text);
    setCursorPosition(firstPosition(section) + after);
    clearSelection();
    update();
}

void KestIPAddressEdit::onCustomContextMenuRequested(const QPoint &pos)
{
    const bool canCopy =
        std::any_of(d->selections.cbegin(), d->selections.cend(), [](const auto &selection) {
            return !selection.isEmpty() && selection.first().length != 0;
        });
    // The edit may be deleted while the menu is open, and the menu with it.
    const QPointer<QMenu> menu(new QMenu(this));
    if (canCopy)
        menu->addAction(d->copyAction);
    if (!d->readOnly && !QGuiApplication::clipboard()->text().isEmpty())
        menu->addAction(d->pasteAction);
    if (!menu->isEmpty())
        menu->exec(mapToGlobal(pos));
    delete menu;
}

bool KestIPAddressEdit::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::FontChange:
        updateTextLayout();
        break;
    case QEvent::ShortcutOverride:
        // What is typed is not to trigger a shortcut of the window.
        if (isTyping(static_cast<QKeyEvent *>(event)) && !d->readOnly) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void KestIPAddressEdit::keyPressEvent(QKeyEvent *event)
{
    const bool selecting = event->modifiers() & Qt::ShiftModifier;
    const int key = event->key();
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        if (!d->readOnly)
            insertDigit(event->text());
    } else if (key == Qt::Key_Backspace) {
        if (!d->readOnly)
            deleteBackward();
    } else if (key == Qt::Key_Left || key == Qt::Key_Up) {
        moveBackward(selecting);
    } else if (key == Qt::Key_Right || key == Qt::Key_Down) {
        moveForward(selecting);
    } else if (key == Qt::Key_Delete) {
        if (!d->readOnly)
            deleteForward();
    } else if (event->text() == Dot) {
        typeDot();
    } else if (key == Qt::Key_Escape) {
        clearSelection();
    }
    update();
    if (event->text() != Dot && (key == Qt::Key_Return || key == Qt::Key_Enter))
        Q_EMIT editingFinished();
}

void KestIPAddressEdit::insertDigit(const QString &digit)
{
    if (hasSelection())
        deleteSelectedText();
    QTextLayout &layout = textLayout(d->cursorPosition);
    QString text = layout.text();
    if (text.length() >= SectionLength)
        return;
    const int offset = positionInSection(d->cursorPosition);
    const bool appended = offset >= text.length();
    text.insert(appended ? text.length() : offset, digit);
    if (!setText(layout, text))
        return;
    int position = d->cursorPosition + 1;
    // From the end of a section that is full now to the next one.
    if (appended && text.length() == SectionLength && position < firstPosition(LastSection))
        ++position;
    setCursorPosition(position);
}

void KestIPAddressEdit::deleteBackward()
{
    if (hasSelection()) {
        deleteSelectedText();
        return;
    }
    const int section = sectionOfCursorPosition(d->cursorPosition);
    const int offset = positionInSection(d->cursorPosition);
    QString text = d->text(section);
    if (offset > 0 && !text.isEmpty()) {
        text.remove(offset - 1, 1);
        setCursorPosition(d->cursorPosition - 1);
        setText(d->layouts[size_t(section)], text);
    } else if (offset == 0 && section > 0) {
        // The dot can not be deleted: what is before it is.
        text = d->text(section - 1);
        text.chop(1);
        setCursorPosition(firstPosition(section - 1) + text.length());
        setText(d->layouts[size_t(section - 1)], text);
    }
}

void KestIPAddressEdit::deleteForward()
{
    if (hasSelection()) {
        deleteSelectedText();
        return;
    }
    QTextLayout &layout = textLayout(d->cursorPosition);
    const int offset = positionInSection(d->cursorPosition);
    QString text = layout.text();
    if (offset < text.length()) {
        text.remove(offset, 1);
        setText(layout, text);
    }
}

void KestIPAddressEdit::moveBackward(bool selecting)
{
    if (selecting) {
        // A selection never leaves its section.
        if (positionInSection(d->cursorPosition) > 0)
            selectTo(d->cursorPosition - 1, d->cursorPosition);
        return;
    }
    if (hasSelection()) {
        clearSelection();
        return;
    }
    if (d->cursorPosition == 0)
        return;
    const int position = d->cursorPosition - 1;
    const int section = sectionOfCursorPosition(position);
    const int length = d->text(section).length();
    setCursorPosition(positionInSection(position) > length ? firstPosition(section) + length
                                                           : position);
}

void KestIPAddressEdit::moveForward(bool selecting)
{
    const int offset = positionInSection(d->cursorPosition);
    if (selecting) {
        // It may go past the last digit: a selection is what the keys made it.
        if (offset < SectionLength)
            selectTo(d->cursorPosition + 1, d->cursorPosition);
        return;
    }
    if (hasSelection()) {
        clearSelection();
        return;
    }
    if (d->cursorPosition >= EndPosition)
        return;
    const int section = sectionOfCursorPosition(d->cursorPosition);
    if (offset != d->text(section).length())
        setCursorPosition(d->cursorPosition + 1);
    else if (section < LastSection)
        setCursorPosition(firstPosition(section + 1));
}

void KestIPAddressEdit::typeDot()
{
    const int section = sectionOfCursorPosition(d->cursorPosition);
    const int length = d->text(section).length();
    if (section < LastSection && length > 0 && positionInSection(d->cursorPosition) == length)
        setCursorPosition(firstPosition(section + 1));
}

void KestIPAddressEdit::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int position = xToCursor(qRound(event->localPos().x()));
    const int section = sectionOfCursorPosition(position);
    if (event->modifiers() == Qt::NoModifier) {
        clearSelection();
        setCursorPosition(position);
        d->mousePressed = true;
        d->pressPosition = position;
        d->pressSection = section;
    } else if (event->modifiers() & Qt::ShiftModifier
               && section == sectionOfCursorPosition(d->cursorPosition)) {
        selectTo(position, d->cursorPosition);
    }
    update();
}

void KestIPAddressEdit::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->mousePressed || event->modifiers() != Qt::NoModifier)
        return;
    const int position = xToCursor(qRound(event->localPos().x()));
    if (sectionOfCursorPosition(position) == d->pressSection)
        selectTo(position, d->pressPosition);
    update();
}

void KestIPAddressEdit::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier)
        d->mousePressed = false;
}

void KestIPAddressEdit::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier)
        return;
    clearSelection();
    const int section = sectionOfCursorPosition(xToCursor(qRound(event->localPos().x())));
    const int length = d->text(section).length();
    d->selections[section].append({ 0, length, highlight(palette()) });
    setCursorPosition(firstPosition(section) + length);
    update();
}

void KestIPAddressEdit::focusInEvent(QFocusEvent *)
{
    d->cursorVisible = true;
    d->blinkTimer.start();
    update();
}

void KestIPAddressEdit::focusOutEvent(QFocusEvent *event)
{
    d->cursorVisible = false;
    d->blinkTimer.stop();
    // Its own menu is for what is selected.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason)
        clearSelection();
    update();
    Q_EMIT editingFinished();
}

void KestIPAddressEdit::inputMethodEvent(QInputMethodEvent *event)
{
    event->setAccepted(!d->readOnly);
}

QVariant KestIPAddressEdit::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnabled)
        return false;
    return QWidget::inputMethodQuery(query);
}

// Sections are packed from the left, also in right-to-left layouts.
QRect KestIPAddressEdit::rectOfIpSection(int section) const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    QRect rect = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    if (!rect.isValid()) {
        rect.setLeft(0);
        rect.setTop(0);
        rect.setBottom(height() - 1);
    }
    const int width = option.fontMetrics.boundingRect(SectionTemplate).width();
    rect.setLeft(rect.left() + section * (dotWidth(option.fontMetrics) + width));
    rect.setWidth(width);
    return rect;
}

// Where the text of a section is in the rectangle of the section: in its middle.
QRect KestIPAddressEdit::boundRect(int section, const QRect &rect) const
{
    const QRectF bounds = d->layouts[size_t(section)].boundingRect();
    return { qRound(rect.left() + (rect.width() - bounds.width()) * 0.5),
             qRound(rect.top() + (rect.height() - bounds.height()) * 0.5), qRound(bounds.width()),
             qRound(bounds.height()) };
}

int KestIPAddressEdit::xToCursor(int x) const
{
    const int dot = dotWidth(fontMetrics());
    for (int section = 0; section < SectionCount; ++section) {
        const QRect rect = rectOfIpSection(section);
        const bool last = section == LastSection;
        // A dot belongs to what is before it, and so does what is behind the last section.
        const bool inside = x >= rect.left() && x <= rect.right() + dot;
        if (last && x < rect.left())
            return 0;
        if (!last && !inside)
            continue;
        const QTextLine line = d->layouts[size_t(section)].lineAt(0);
        const int offset =
            line.xToCursor(x - boundRect(section, rect).left(), QTextLine::CursorBetweenCharacters);
        return firstPosition(section) + offset;
    }
    return 0;
}

void KestIPAddressEdit::paintEvent(QPaintEvent *)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);

    const int dot = dotWidth(option.fontMetrics);
    for (int section = 0; section < SectionCount; ++section) {
        const QRect rect = rectOfIpSection(section);
        const QRect bounds = boundRect(section, rect);
        d->layouts[size_t(section)].draw(&painter, bounds.topLeft(), d->selections.at(section),
                                         bounds);
        if (section < LastSection) {
            const QRectF dotRect(rect.right() + 1, bounds.top(), dot, bounds.height());
            painter.drawText(dotRect, Dot, QTextOption());
        }
    }

    if (!d->cursorVisible || !hasFocus() || d->readOnly)
        return;
    const int section = sectionOfCursorPosition(d->cursorPosition);
    const QPoint origin =
        boundRect(section, rectOfIpSection(section)).topLeft() + QPoint(0, d->cursorAscentOffset);
    d->layouts[size_t(section)].drawCursor(&painter, origin, positionInSection(d->cursorPosition));
}
