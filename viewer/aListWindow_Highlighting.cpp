#include "Finally.h"
#include "GlobalData.h"
#include "Keyboard.h"
#include "Look.h"
#include "Phrase.h"
#include "Text.h"
#include "aHilightWindow.h"
#include "aListWindow.h"

namespace folimark {
namespace {

/// Hides the list and dims the buttons that would start a second pass, for as long as the result lives.
auto BeginPass(const aListWindow& window) {
    const Ref<Listbox> list = window.TheListBox();
    const Ref<PushButton> highlight = window.HighlightPushButton();
    list->Visible(false);
    highlight->Enabled(false);
    window.RemoveHighlightingPushButton()->Enabled(false);
    return Finally([list, highlight] {
        highlight->Enabled(true);
        list->Visible(true);
    });
}

bool Matches(bool found1, bool found2, std::int64_t join) {
    switch (join) {
    case GlobalData::kBoth:
        return found1 && found2;
    case GlobalData::kEither:
        return found1 || found2;
    case GlobalData::kFirstButNotSecond:
        return found1 && !found2;
    default:
        return found1;
    }
}

} // namespace

void aListWindow::HighlightPushButton_Action(PushButton& /*button*/) {
    HighlightWindow = New<aHilightWindow>();
    HighlightWindow->ShowModal();
    if (!GlobalData::HighlightOK) {
        return;
    }
    const Search search{GlobalData::HighlightPhrase1, GlobalData::HighlightPhrase2,
                        GlobalData::HighlightType};
    if (scanning_) {
        searchToRepeat_ = search;
        Highlighted.Redim(TheListBox()->LastIndex()); // for the rows that are there
    }
    SearchRows(search);
}

void aListWindow::SearchRows(const Search& search) {
    const auto pass = BeginPass(*this);
    const Ref<Listbox> list = TheListBox();
    Phrase phrase1(search.phrase1);
    Phrase phrase2(search.phrase2);
    NumberHighlighted = 0;
    for (std::int64_t i = 0; i <= Highlighted.Ubound(); ++i) {
        const std::string_view name = list->Rows().Cell(i, 0);
        const bool found1 = phrase1.IsIn(name);
        const bool found2 = search.join != GlobalData::kFirstAlone && phrase2.IsIn(name);
        Highlighted.Set(i, Matches(found1, found2, search.join));
        if (Highlighted(i)) {
            ++NumberHighlighted;
        }
        Yield();
    }
    ShowHighlightCount();
}

void aListWindow::RemoveHighlightingPushButton_Action(PushButton& /*button*/) {
    searchToRepeat_.reset();
    const auto pass = BeginPass(*this);
    NumberHighlighted = 0;
    for (std::int64_t i = 0; i <= Highlighted.Ubound(); ++i) {
        Highlighted.Set(i, false);
        Yield();
    }
    ShowHighlightCount();
}

void aListWindow::ShowHighlightCount() {
    HighlightCountLabel()->Text(Str(NumberHighlighted) + " Media Files Highlighted");
    RemoveHighlightingPushButton()->Enabled(NumberHighlighted > 0);
    TheListBox()->MarksChanged();
}

bool aListWindow::IsHighlighted(const Listbox& list, std::int64_t row) const {
    return row <= list.LastIndex() && row <= Highlighted.Ubound() && Highlighted(row);
}

bool aListWindow::TheListBox_CellBackgroundPaint(Listbox& list, class Graphics& graphics, std::int64_t row,
                                                 int /*column*/) {
    graphics.ForeColor(IsHighlighted(list, row) ? Look::kHighlightedRow : Look::Stripe(row));
    graphics.FillRect(0, 0, graphics.Width(), graphics.Height());
    return false;
}

bool aListWindow::Event_KeyDown(const std::string& key) {
    if (NumberHighlighted <= 0 || key != Chr(9)) {
        return true;
    }
    const Ref<Listbox> list = TheListBox();
    const std::int64_t step = Keyboard::ShiftKey() ? -1 : 1;
    std::int64_t i = list->ListIndex();
    for (;;) {
        i += step;
        if (i < 0) {
            i = list->LastIndex();
        } else if (i > list->LastIndex()) {
            i = 0;
        }
        if (i == list->ListIndex() || (i <= Highlighted.Ubound() && Highlighted(i))) {
            break;
        }
        Yield();
    }
    hitShown_ = i;
    list->ListIndex(i);
    return true;
}

} // namespace folimark
