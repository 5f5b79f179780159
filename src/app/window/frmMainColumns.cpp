#include "app/window/frmMainColumns.h"

#include <algorithm>
#include <cstddef>

#include "controls/Twips.h"

namespace quillon {
namespace {

constexpr int kWidestColumn = 4000;   // DIP
constexpr int kNarrowestColumn = 20;  // DIP: the header of a narrower column cannot be seen or dragged

}  // namespace

// A column of the usual width is widened when its heading or its texts need more.
int frmMainColumns::FirstWidth(Column column, std::int32_t twips) const {
  const bool usual = twips == OptionValues().window.columnWidths.at(static_cast<std::size_t>(column));
  return std::max(ToPixels(list_.Window(), twips), usual ? list_.NeededWidth(column) : 0);
}

void frmMainColumns::Show(const OptionValues::Window& stored) {
  const wxWindow& window = list_.Window();
  ColumnWidths::Widths first{};
  for (std::size_t i = 0; i < first.size(); ++i) {
    const auto column = static_cast<Column>(i);
    first[i] = std::clamp(FirstWidth(column, stored.columnWidths[i]), window.FromDIP(kNarrowestColumn),
                          window.FromDIP(kWidestColumn));
    list_.SetColumnWidth(column, first[i]);
  }
  widths_.emplace(first, Usual());
}

ColumnWidths::Widths frmMainColumns::Usual() const {
  const OptionValues::Window usual;
  ColumnWidths::Widths widths{};
  for (std::size_t i = 0; i < widths.size(); ++i) {
    widths[i] = FirstWidth(static_cast<Column>(i), usual.columnWidths[i]);
  }
  return widths;
}

void frmMainColumns::StartAnew() {
  widths_.emplace(Shown(), Usual());
  room_ = list_.RoomForColumns();
  widths_->SetStartRoom(room_);
}

ColumnWidths::Widths frmMainColumns::Shown() const {
  ColumnWidths::Widths shown{};
  for (std::size_t i = 0; i < shown.size(); ++i) shown[i] = list_.ColumnWidth(static_cast<Column>(i));
  return shown;
}

void frmMainColumns::Follow(bool firstSize) {
  const int room = list_.RoomForColumns();
  if (!widths_ || room <= 0) return;
  const ColumnWidths::Widths shown = Shown();
  widths_->Observe(shown);
  if (firstSize) widths_->SetStartRoom(room);
  if (room == room_) return;  // a column that has just been dragged changes no other before the window's size changes
  room_ = room;
  const ColumnWidths::Widths wanted = widths_->For(room);
  if (wanted != shown) list_.Window().Refresh();
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (wanted[i] != shown[i]) list_.SetColumnWidth(static_cast<Column>(i), wanted[i]);
  }
  widths_->SetShown(wanted);
}

void frmMainColumns::Keep(OptionValues::Window& stored, bool withSize) {
  if (!widths_) return;
  const ColumnWidths::Widths shown = Shown();
  widths_->Observe(shown);
  const ColumnWidths::Widths kept = withSize ? shown : widths_->AtStart();
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (kept[i] == FirstWidth(static_cast<Column>(i), stored.columnWidths[i])) continue;
    UpdateTwips(list_.Window(), stored.columnWidths[i], kept[i]);
  }
}

}  // namespace quillon
