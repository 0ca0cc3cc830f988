#include "ListView.h"

#include "Accessibility.h"
#include "CellPainter.h"
#include "Headings.h"
#include "KeyBacklog.h"
#include "Listbox.h"
#include "MarkedScrollBar.h"
#include "NativeSurface.h"
#include "PlatformText.h"
#include "RowsModel.h"
#include "ToolkitKey.h"

#include <QApplication>
#include <QDateTime>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace folimark {
namespace {

// Milliseconds between two batches of new rows that the view is told of.
constexpr int kAnnouncementPause = 250;

/// The system's font, made smaller if a row couldn't hold it.
QFont FontForRows(QFont font) {
    while (QFontMetrics(font).height() > Listbox::kRowHeight && QFontInfo(font).pixelSize() > 8) {
        font.setPixelSize(QFontInfo(font).pixelSize() - 1);
    }
    return font;
}

/// Is it a key by itself, or with the shift key, and so no shortcut?
bool IsPlain(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
}

} // namespace

ListView::ListView(Listbox& list, QWidget* parent)
    : QTableView(parent), list_(list), model_(new RowsModel(list, this)),
      backlog_(std::make_unique<KeyBacklog>()), marks_(new MarkedScrollBar(list, this)) {
    setVerticalScrollBar(marks_);
    setFont(FontForRows(font()));
    setModel(model_);
    setItemDelegate(new CellPainter(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setDragEnabled(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(Listbox::kRowHeight);
    verticalHeader()->setDefaultSectionSize(Listbox::kRowHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    auto* headings = new Headings(this);
    setHorizontalHeader(headings);
    headings->setVisible(list.HasHeading());
    headings->setHighlightSections(false);
    headings->setSectionResizeMode(QHeaderView::Fixed);
    headings->setMinimumSectionSize(0);
    headings->setStretchLastSection(true);
    headings->setSectionsClickable(list.HasHeading());
    announcement_.setSingleShot(true);
    connect(&announcement_, &QTimer::timeout, this, [this] { model_->Announce(); });
    connect(headings, &QHeaderView::sectionClicked, this,
            [this](int column) { list_.ClickHeading(kToolkit, column); });
}

ListView::~ListView() = default;

void ListView::RowAdded() {
    if (!announcement_.isActive()) {
        // The first rows show at once. Later ones only move the scroll bar, and each time costs a repaint.
        announcement_.start(model_->rowCount() * Listbox::kRowHeight < height() ? 0 : kAnnouncementPause);
    }
}

void ListView::BeginRemove(std::int64_t row) {
    model_->BeginRemove(static_cast<int>(row));
}

void ListView::EndRemove() {
    model_->EndRemove();
    ShowSelection();
}

void ListView::Reset() {
    model_->Reset();
}

void ListView::CellChanged(std::int64_t row, int column) {
    model_->CellChanged(static_cast<int>(row), column);
}

void ListView::Sorted(int column, bool ascending) {
    model_->Reordered();
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(column, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    ShowSelection();
}

void ListView::ShowColumns(const std::string& widths) {
    const QStringList parts = ToQString(widths).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (int column = 0; column < static_cast<int>(parts.size()); ++column) {
        const int width = parts[column].toInt();
        setColumnHidden(column, width == 0);
        if (width > 0) {
            setColumnWidth(column, width);
        }
    }
}

void ListView::ShowSelection() {
    model_->Announce();
    const QModelIndex index = model_->index(static_cast<int>(list_.ListIndex()), 0);
    selectionModel()->setCurrentIndex(index, index.isValid() ? QItemSelectionModel::ClearAndSelect
                                                                   | QItemSelectionModel::Rows
                                                             : QItemSelectionModel::Clear);
    if (index.isValid()) {
        scrollTo(index);
    }
    viewport()->update();
    AnnounceSelection(*this);
}

// The table's own functions, which are passed over, would announce cells by numbers that ours don't have.
// NOLINTBEGIN(bugprone-parent-virtual-call)

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected);
}

// NOLINTEND(bugprone-parent-virtual-call)

void ListView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        list_.SelectByUser(kToolkit, indexAt(event->position().toPoint()).row());
    }
}

void ListView::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const int row = indexAt(event->position().toPoint()).row();
    if (row >= 0 && row != list_.ListIndex()) {
        list_.SelectByUser(kToolkit, row);
    }
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const int row = indexAt(event->position().toPoint()).row();
    if (row != list_.ListIndex()) {
        list_.SelectByUser(kToolkit, row); // The second click hit another row than the first.
    } else {
        list_.DoubleClickByUser(kToolkit);
    }
}

bool ListView::MoveByKey(int key) {
    const auto current = list_.ListIndex();
    const std::int64_t last = list_.LastIndex();
    const std::int64_t page = std::max(1, viewport()->height() / Listbox::kRowHeight - 1);
    std::int64_t row = 0;
    switch (key) {
    case Qt::Key_Home:
        break;
    case Qt::Key_Up:
        row = current - 1;
        break;
    case Qt::Key_Down:
        row = current + 1;
        break;
    case Qt::Key_PageUp:
        row = current - page;
        break;
    case Qt::Key_PageDown:
        row = current + page;
        break;
    case Qt::Key_End:
        row = last;
        break;
    default:
        return false;
    }
    row = std::clamp<std::int64_t>(row, 0, std::max<std::int64_t>(last, 0));
    if (row <= last && row != current) {
        list_.SelectByUser(kToolkit, row);
        // While a key is held the queue never runs empty, and that is when widgets would be painted.
        window()->repaint();
    }
    return true;
}

bool ListView::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        // Here, because Tab never gets as far as to keyPressEvent.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (backlog_->IsLate(key) && IsPlain(key)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (IsPlain(*event)) {
        if (!event->modifiers().testFlag(Qt::ShiftModifier) && MoveByKey(event->key())) {
            return;
        }
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            list_.DoubleClickByUser(kToolkit);
            return;
        }
        if (!event->text().isEmpty() && event->text().front().isPrint()) {
            keyboardSearch(event->text());
            return;
        }
    }
    event->ignore(); // The window's turn.
}

void ListView::keyboardSearch(const QString& text) {
    const std::int64_t now = QDateTime::currentMSecsSinceEpoch();
    const bool goesOn = now - typedAt_ < QApplication::keyboardInputInterval();
    typedAt_ = now;
    // The same letter again and again steps through the entries that start with it.
    const bool steps = goesOn && typed_.size() == 1 && typed_ == text;
    typed_ = goesOn && !steps ? typed_ + text : text;
    const std::int64_t from = typed_.size() > 1 ? list_.ListIndex() : list_.ListIndex() + 1;
    const std::int64_t row = list_.Rows().FindPrefix(ToText(typed_), from);
    if (row >= 0 && row != list_.ListIndex()) {
        list_.SelectByUser(kToolkit, row);
    }
}

void ListView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange) {
        viewport()->update(); // The selection looks different in a window without the keyboard.
    }
    QTableView::changeEvent(event);
}

void ListView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    PaintEmptyRows();
    PaintEmptyText();
}

void ListView::PaintEmptyRows() {
    const int rows = model_->rowCount();
    int top = rows == 0 ? 0 : rowViewportPosition(rows - 1) + Listbox::kRowHeight;
    QPainter painter(viewport());
    const QColor ground = palette().color(QPalette::Base);
    for (std::int64_t row = rows; top < viewport()->height(); ++row, top += Listbox::kRowHeight) {
        for (int column = 0; column < model_->columnCount(); ++column) {
            if (!isColumnHidden(column)) {
                const QRect cell(columnViewportPosition(column), top, columnWidth(column),
                                 Listbox::kRowHeight);
                Graphics graphics(std::make_unique<PaintedSurface>(painter, cell, ground));
                list_.PaintCellBackground(kToolkit, graphics, row, column);
            }
        }
    }
}

} // namespace folimark
