#include "grid_view.h"

#include <commctrl.h>

#include "win32/win32_text.h"
#include "window_geometry.h"

namespace quorlin::win32 {

HWND GridView::create(HWND parent, int id) {
    list_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                                LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                            0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleW(nullptr), nullptr);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    for (int c = 0; c < kGridColumns; ++c) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = const_cast<wchar_t*>(L"");
        ListView_InsertColumn(list_, c, &column);
    }
    return list_;
}

void GridView::setColumnWidths(const TrackGrid& grid, UINT dpi) {
    for (int c = 0; c < kGridColumns; ++c) ListView_SetColumnWidth(list_, c, pixelsOf(grid.colWidth(c), dpi));
}

void GridView::show(const TrackGrid& grid) {
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    setHeader(grid);
    setRows(grid);
    select(grid.row());
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

void GridView::setHeader(const TrackGrid& grid) {
    for (int c = 0; c < kGridColumns; ++c) {
        std::wstring text = wideFromUtf8(grid.cell(0, c));
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        column.pszText = text.data();
        ListView_SetColumn(list_, c, &column);
    }
}

void GridView::setRows(const TrackGrid& grid) {
    const int items = grid.rowCount() - 1;
    while (ListView_GetItemCount(list_) > items) ListView_DeleteItem(list_, ListView_GetItemCount(list_) - 1);
    for (int item = ListView_GetItemCount(list_); item < items; ++item) {
        LVITEMW row{};
        row.iItem = item;
        row.pszText = const_cast<wchar_t*>(L"");
        row.mask = LVIF_TEXT;
        ListView_InsertItem(list_, &row);
    }
    for (int item = 0; item < items; ++item) {
        for (int c = 0; c < kGridColumns; ++c) {
            std::wstring text = wideFromUtf8(grid.cell(item + 1, c));
            ListView_SetItemText(list_, item, c, text.data());
        }
    }
}

void GridView::select(int row) {
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (row < 1) return;
    ListView_SetItemState(list_, row - 1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list_, row - 1, FALSE);
}

}  // namespace quorlin::win32
