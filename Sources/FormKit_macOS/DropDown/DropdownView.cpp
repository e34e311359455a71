// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownView.h"

#include "FormKit_macOS/DropDown/DropdownCellView.h"
#include "FormKit_macOS/DropDown/TextMatch.h"
#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit/Drawing/Text/SystemFont.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

constexpr int widest = 500;
constexpr int sideRoom = 26; ///< beside the cell of the widest item
constexpr int rowsInset = 4; ///< above the first row and below the last
constexpr auto searchDelay = 200ms;

QFont menuFont()
{
    const double size = std::round(toolkit::pixelSize(QApplication::font("QMenu")));
    return toolkit::monospacedDigitFont(size, QFont::Normal);
}

int cellHeight()
{
    DropdownCellView cell;
    cell.setFont(menuFont());
    return cell.sizeHint().height();
}

/// Whether the rows use this key of the search field.
bool isForRows(const QKeyEvent& event, const QLineEdit& field)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        return field.text().isEmpty(); // the caret has nowhere to go
    default:
        return false;
    }
}

} // namespace

DropdownView::DropdownView(const DropdownItems& items, std::optional<int> selectedIndex, int minWidth)
    : formItems_(items.shared())
    , hasSeparators_(items.hasSeparators())
    , rowHeight_(cellHeight())
    , dataList_(formItems_, selectedIndex, rowHeight_)
    , tableView_(new toolkit::CustomTableView(this))
    , index_(formItems_)
{
    setFont(menuFont());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    if (showsSearch(formItems_->size()))
        addSearch();
    layout->addWidget(tableView_);
    tableView_->setFrameShape(QFrame::NoFrame);
    tableView_->viewport()->setAutoFillBackground(false);
    tableView_->setFocusPolicy(searchField_ ? Qt::NoFocus : Qt::StrongFocus);
    tableView_->setAllowsTypeSelect(false);
    tableView_->setAllowsEmptySelection(false);
    tableView_->setSelectionHighlightStyle(platform::TableViewSelectionStyle::sourceList);
    tableView_->setContentInsets({rowsInset, rowsInset, rowsInset, rowsInset});
    tableView_->setAccessibleName(FormMacOSResource::localizedString(u"FormDropDownList"_s));
    tableView_->setKeyDelegate(this);
    tableView_->setDataSource(&dataList_);
    tableView_->setDelegate(&dataList_);
    dataList_.chosen = [this](const FormItem& item) { choose(item); };
    width_ = std::max(minWidth, contentWidth(items.widest()));
    showAll();
}

DropdownView::~DropdownView()
{
    cancelSearch(); // else the queue would wait for it
}

void DropdownView::addSearch()
{
    searchField_ = new SearchField(this);
    const QString title = FormMacOSResource::localizedString(u"FormDropDownSearch"_s);
    searchField_->setPlaceholderText(title);
    searchField_->setAccessibleName(title);
    searchField_->installEventFilter(this);
    connect(searchField_, &QLineEdit::textChanged, this, &DropdownView::searchSoon);
    loadingSpinner_ = new toolkit::SyncSpinner(toolkit::SpinnerType::small, this);
    QSizePolicy policy = loadingSpinner_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    loadingSpinner_->setSizePolicy(policy);
    loadingSpinner_->hide();
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(topPadding, topPadding, topPadding, 0);
    row->setSpacing(topPadding);
    row->addWidget(searchField_);
    row->addWidget(loadingSpinner_);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

QWidget& DropdownView::keyboardReceiver()
{
    return searchField_ ? static_cast<QWidget&>(*searchField_) : *tableView_;
}

int DropdownView::contentWidth(const DropdownItems::List& candidates) const
{
    DropdownCellView prototypeCellView;
    prototypeCellView.setFont(font());
    int width = 0;
    for (auto item = candidates.begin(); item != candidates.end() && width < widest; ++item) {
        prototypeCellView.setItem(*item, false);
        width = std::max(width, prototypeCellView.sizeHint().width() + sideRoom);
    }
    return std::min(width, widest);
}

QSize DropdownView::fittingSize(int maxHeight) const
{
    int height = tableView_->sizeHint().height();
    if (searchField_)
        height
            += std::max(searchField_->sizeHint().height(), loadingSpinner_->sizeHint().height()) + topPadding;
    const bool scrolls = height > maxHeight;
    const int bar = scrolls ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, tableView_) : 0;
    return {width_ + bar, std::min(height, maxHeight)};
}

void DropdownView::searchSoon()
{
    cancelSearch();
    delayedReload_
        = platform::MainQueue::after(searchDelay, platform::whileAlive(*this, [this] { search(); }));
}

void DropdownView::cancelSearch()
{
    if (isCancelled_)
        *isCancelled_ = true;
    isCancelled_.reset();
    delayedReload_.cancel();
}

void DropdownView::search()
{
    const QString term = searchField_->text();
    if (term.isEmpty()) {
        showAll();
        return;
    }
    loadingSpinner_->show();
    loadingSpinner_->startSpinning(1);
    isCancelled_ = std::make_shared<std::atomic<bool>>(false);
    auto show = platform::whileAlive(
        *this, [this, isCancelled = isCancelled_, term](const std::shared_ptr<std::vector<int>>& found) {
            if (!*isCancelled)
                showFound(std::move(*found), foldedText(term));
        });
    accessQueue_.async([this, isCancelled = isCancelled_, term, show = std::move(show)] {
        if (auto found = index_.find(term, *isCancelled))
            platform::MainQueue::async(
                [show, found = std::make_shared<std::vector<int>>(*std::move(found))]() mutable {
                    show(found);
                });
    });
}

void DropdownView::showAll()
{
    dataList_.showAll();
    reload(!hasSeparators_);
}

void DropdownView::showFound(std::vector<int> found, const QString& searched)
{
    dataList_.showFound(std::move(found), searched);
    reload(true);
}

void DropdownView::reload(bool isUniform)
{
    if (loadingSpinner_) {
        loadingSpinner_->stop();
        loadingSpinner_->hide();
    }
    tableView_->setUniformRowHeight(isUniform ? std::optional(rowHeight_) : std::nullopt);
    tableView_->deselectAll(); // rows are others now
    tableView_->reloadData();
    if (const auto selected = dataList_.selectedRow())
        tableView_->selectRow(*selected);
    Q_EMIT resized();
    showSelectedRow();
}

void DropdownView::showSelectedRow()
{
    if (tableView_->selectedRow() >= 0)
        tableView_->scrollRowToVisible(tableView_->selectedRow());
    else
        tableView_->verticalScrollBar()->setValue(0);
}

void DropdownView::choose(const FormItem& item)
{
    const auto found = std::find(formItems_->begin(), formItems_->end(), item);
    Q_EMIT selectionChanged(found == formItems_->end() ? 0 : int(found - formItems_->begin()));
}

void DropdownView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    layout()->activate(); // the table must have its height
    showSelectedRow();
}

bool DropdownView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != searchField_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    if (!isForRows(static_cast<QKeyEvent&>(*event), *searchField_))
        return false;
    QCoreApplication::sendEvent(tableView_, event);
    return true;
}

void DropdownView::tableViewDidPressEnter(toolkit::CustomTableView& table, int row)
{
    table.clickRow(row);
}

void DropdownView::tableViewDidPressSpace(toolkit::CustomTableView& table, int row)
{
    table.clickRow(row);
}

} // namespace quor::formkit
