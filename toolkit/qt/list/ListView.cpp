#include "ListView.h"

#include "Accessibility.h"
#include "CellPainter.h"
#include "ContentFit.h"
#include "Headings.h"
#include "KeyBacklog.h"
#include "Listbox.h"
#include "MarkedScrollBar.h"
#include "NativeSurface.h"
#include "PlatformText.h"
#include "RowsModel.h"
#include "ToolkitKey.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace folimark {
namespace {

// Milliseconds between two batches of new rows that the view is told of.
constexpr int kAnnouncementPause = 250;

} // namespace

ListView::ListView(Listbox& list, QWidget* parent)
    : QTableView(parent), list_(list), model_(new RowsModel(list, this)),
      backlog_(std::make_unique<KeyBacklog>()), marks_(new MarkedScrollBar(list, this)) {
    setVerticalScrollBar(marks_);
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
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    auto* headings = new Headings(this);
    setHorizontalHeader(headings);
    headings->setHighlightSections(false);
    headings->setSectionResizeMode(QHeaderView::Fixed);
    headings->setMinimumSectionSize(0);
    headings->setStretchLastSection(true);
    announcement_.setSingleShot(true);
    connect(&announcement_, &QTimer::timeout, this, [this] { model_->Announce(); });
    connect(headings, &QHeaderView::sectionClicked, this,
            [this](int column) { list_.ClickHeading(kToolkit, column); });
    ListView::Reset();
}

ListView::~ListView() = default;

void ListView::RowAdded() {
    if (!announcement_.isActive()) {
        // The first rows show at once. Later ones only move the scroll bar, and each time costs a repaint.
        announcement_.start(model_->rowCount() * rowHeight_ < height() ? 0 : kAnnouncementPause);
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
    horizontalHeader()->setVisible(list_.HasHeading());
    horizontalHeader()->setSectionsClickable(list_.HasHeading());
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
    widths_.clear();
    for (const QString& width : ToQString(widths).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        widths_.push_back(width.toInt());
    }
    ShareWidth();
}

void ListView::Measure(int rowHeight) {
    if (rowHeight != rowHeight_) {
        rowHeight_ = rowHeight;
        verticalHeader()->setDefaultSectionSize(rowHeight);
        updateGeometries(); // The headings' height goes with it, too.
        ShareWidth();
    }
}

void ListView::ShareWidth() {
    int excess = -viewport()->width();
    for (const int width : widths_) {
        excess += PixelsOf(width, rowHeight_);
    }
    int column = 0;
    for (const int width : widths_) {
        setColumnHidden(column, width == 0);
        if (width > 0) {
            // The names give way, since each of them is shortened where it has to be.
            const int pixels = PixelsOf(width, rowHeight_) - (column == 0 ? std::max(0, excess) : 0);
            setColumnWidth(column, std::max(pixels, rowHeight_));
        }
        ++column;
    }
}

void ListView::resizeEvent(QResizeEvent* event) {
    const QModelIndex selected = currentIndex();
    const bool wasInSight = QRect(QPoint(0, 0), event->oldSize()).contains(visualRect(selected).center());
    QTableView::resizeEvent(event);
    ShareWidth();
    if (wasInSight) {
        scrollTo(selected);
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
    PaintFocusRing();
}

void ListView::PaintFocusRing() {
    if (list_.UseFocusRing() && hasFocus()) {
        constexpr int kRing = 2;
        QPainter painter(viewport());
        painter.setPen(
            QPen(CellPainter::SelectionColor(), kRing, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(viewport()->rect().adjusted(kRing / 2, kRing / 2, -kRing / 2, -kRing / 2));
    }
}

void ListView::PaintEmptyRows() {
    const int rows = model_->rowCount();
    int top = rows == 0 ? 0 : rowViewportPosition(rows - 1) + rowHeight_;
    QPainter painter(viewport());
    const QColor ground = palette().color(QPalette::Base);
    for (std::int64_t row = rows; top < viewport()->height(); ++row, top += rowHeight_) {
        for (int column = 0; column < model_->columnCount(); ++column) {
            if (!isColumnHidden(column)) {
                const QRect cell(columnViewportPosition(column), top, columnWidth(column), rowHeight_);
                Graphics graphics(std::make_unique<PaintedSurface>(painter, cell, ground));
                list_.PaintCellBackground(kToolkit, graphics, row, column);
            }
        }
    }
}

} // namespace folimark
