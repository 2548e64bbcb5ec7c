#include "sheet_window.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <algorithm>

namespace brindle {
namespace {

// Asks for the room that its contents would like.
class CPageScroll : public QScrollArea {
public:
    CPageScroll() {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        auto* const content = new QWidget;
        setWidget(content);
        // The page's ground is that of its tab.
        viewport()->setAutoFillBackground(false);
        content->setAutoFillBackground(false);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override {
        const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
        const int most = screen()->availableGeometry().width() * 4 / 5;
        return {std::min(width, most), fontMetrics().lineSpacing() * 12};
    }
};

// Reports that the front page is about to go before the next one takes its place. Ctrl+Page Up and Ctrl+Page Down turn
// the pages wherever the focus is; the widget itself knows Ctrl+Tab.
class CTabs : public QTabWidget {
public:
    CTabs(QWidget* parent, const std::function<void()>& on_leave) : QTabWidget(parent) {
        auto* const bar = new QTabBar(this);
        connect(bar, &QTabBar::currentChanged, this, on_leave);
        setTabBar(bar);
        bar->setUsesScrollButtons(true);
        TurnBy(Qt::CTRL | Qt::Key_PageUp, -1);
        TurnBy(Qt::CTRL | Qt::Key_PageDown, 1);
    }

private:
    void TurnBy(QKeyCombination keys, int pages) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, pages] { setCurrentIndex((currentIndex() + pages + count()) % count()); });
    }
};

}  // namespace

// ---- Page ----

CQtPage::CQtPage(CDesk& desk, CQtSheet& sheet, QWidget& content)
    : CQtForm(desk, content, FormFlow::kColumns), sheet_(sheet) {}

void CQtPage::SetModified(bool modified) {
    modified_ = modified;
    sheet_.UpdateApply();
}

void CQtPage::Activate(QWidget& before) {
    body().root().setUpdatesEnabled(false);
    desk().Report(activated);
    body().LayOut();
    QWidget* last = &before;
    for (const CControlCell& cell : body().cells()) {
        QWidget::setTabOrder(last, &cell.widget());
        last = &cell.widget();
    }
    body().root().setUpdatesEnabled(true);
}

// ---- Sheet ----

CQtSheet::CQtSheet(CDesk& desk, std::string_view title)
    : desk_(desk), window_(new CWindow(desk, title)), tabs_(new CTabs(window_.get(), [this] { LeaveFront(); })) {
    window_->body().addWidget(tabs_, 1);
    apply_ = window_->AddButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply)
                 .button(QDialogButtonBox::Apply);
    desk_.Watch(*tabs_->tabBar());
    UpdateApply();
    QObject::connect(tabs_, &QTabWidget::currentChanged, tabs_, [this](int page) { Arrive(page); });
    QObject::connect(apply_, &QPushButton::clicked, apply_, [this] { Apply(); });
    const auto end = [this](bool with_ok) {
        desk_.MoveFocus(nullptr);
        window_->End(with_ok);
    };
    window_->on_ok = [end] { end(true); };
    window_->on_cancel = [end] { end(false); };
}

CQtSheet::~CQtSheet() = default;

CPageForm& CQtSheet::AddPage(std::string_view caption) {
    auto* const scroll = new CPageScroll;
    pages_.push_back(std::make_unique<CQtPage>(desk_, *this, *scroll->widget()));
    tabs_->addTab(scroll, ToQt(caption));
    return *pages_.back();
}

bool CQtSheet::RunModal() {
    desk_.MoveFocus(nullptr);
    const QFontMetrics metrics = window_->fontMetrics();
    const QSize usual(metrics.averageCharWidth() * 132, metrics.lineSpacing() * 54);  // so that few pages need more
    window_->resize(usual.boundedTo(window_->screen()->availableGeometry().size() * 4 / 5));
    tabs_->tabBar()->setFocus();
    front_ = -1;
    tabs_->setCurrentIndex(0);
    if (front_ < 0 && !pages_.empty()) Arrive(0);
    const bool with_ok = window_->RunModal();
    desk_.MoveFocus(nullptr);
    return with_ok;
}

void CQtSheet::UpdateApply() {
    apply_->setEnabled(std::any_of(pages_.begin(), pages_.end(), [](const auto& page) { return page->modified(); }));
}

// The focus stays with the tabs: the first control of the next page must not have it before the page is bound.
void CQtSheet::LeaveFront() {
    if (front_ < 0) return;
    desk_.MoveFocus(nullptr);
    tabs_->tabBar()->setFocus();
    desk_.Report(pages_[static_cast<size_t>(front_)]->left);
}

void CQtSheet::Arrive(int page) {
    if (page == front_ || page < 0) return;
    front_ = page;
    pages_[static_cast<size_t>(page)]->Activate(*tabs_->tabBar());
    tabs_->widget(page)->updateGeometry();
    window_->Grow();
}

void CQtSheet::Apply() {
    desk_.MoveFocus(nullptr);
    for (const auto& page : pages_) page->SetModified(false);
}

}  // namespace brindle
