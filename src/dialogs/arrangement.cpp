#include "dialogs/arrangement.h"

#include <algorithm>
#include <vector>

namespace pactora::dialogs {
namespace {

using Kind = Item::Kind;

// One row or column of places next to each other, along one axis.
struct Track {
  std::int32_t size = 0;
  std::int32_t stretch = 0;
  bool grows = false;
  bool is_used = false;
  std::int32_t begin = 0;
};

using Tracks = std::vector<Track>;

// An axis of an item: how its places lie in tracks.
struct Span {
  std::size_t first = 0;
  std::size_t count = 1;
};

bool TakesPlace(const Item& item, const Measures& measures) {
  switch (item.kind) {
    case Kind::Control:
      return measures.TakesPlace(item.control);
    case Kind::Space:
      return true;
    default:
      return std::ranges::any_of(item.items,
                                 [&](const Item& part) { return TakesPlace(part, measures); });
  }
}

Span SpanOf(const Item& group, std::size_t part, bool across) {
  const Item& item = group.items[part];
  const auto at = [](std::int32_t first, std::int32_t count) {
    return Span{static_cast<std::size_t>(first), static_cast<std::size_t>(count)};
  };
  switch (group.kind) {
    case Kind::Grid:
      return across ? at(item.column, item.columns) : at(item.row, item.rows);
    case Kind::Row:
      return {across ? part : 0, 1};
    case Kind::Column:
      return {across ? 0 : part, 1};
    default:
      return {};
  }
}

std::int32_t SpacingOf(const Item& group, bool across, const Measures& measures) {
  return measures.Scaled(across ? group.column_spacing : group.row_spacing);
}

// The length from the first to the last of the used tracks, with what lies between them.
std::int32_t LengthOf(const Tracks& tracks, Span span, std::int32_t spacing) {
  std::int32_t length = 0;
  bool is_first = true;
  for (std::size_t i = span.first; i < span.first + span.count; ++i) {
    if (!tracks[i].is_used) continue;
    length += tracks[i].size + (is_first ? 0 : spacing);
    is_first = false;
  }
  return length;
}

// Divides room among the tracks of a span: by their shares, else among those that grow,
// else among all. Empty tracks take a share only where they may.
void Widen(Tracks& tracks, Span span, std::int32_t room, bool also_empty = false) {
  std::vector<Track*> takers;
  const auto take = [&](auto&& may) {
    if (!takers.empty()) return;
    for (std::size_t i = span.first; i < span.first + span.count; ++i)
      if (may(tracks[i])) takers.push_back(&tracks[i]);
  };
  take([&](const Track& track) { return track.stretch > 0 && (track.is_used || also_empty); });
  take([](const Track& track) { return track.is_used && track.grows; });
  take([](const Track& track) { return track.is_used; });
  if (takers.empty() || room <= 0) return;
  const auto weight = [](const Track* track) { return std::max(1, track->stretch); };
  std::int32_t weights = 0;
  for (const Track* track : takers) weights += weight(track);
  for (Track* track : takers) {
    const std::int32_t share = room * weight(track) / weights;
    track->size += share;
    room -= share;
    weights -= weight(track);
  }
}

Tracks TracksOf(const Item& group, bool across, const Measures& measures) {
  const auto& shares = across ? group.column_stretch : group.row_stretch;
  Tracks tracks(shares.size());
  std::vector<std::size_t> wide;  // the parts that take several tracks: they come last
  for (std::size_t part = 0; part < group.items.size(); ++part) {
    const Item& item = group.items[part];
    const Span span = SpanOf(group, part, across);
    if (tracks.size() < span.first + span.count) tracks.resize(span.first + span.count);
    if (!TakesPlace(item, measures)) continue;
    if (span.count > 1) {
      wide.push_back(part);
      continue;
    }
    Track& track = tracks[span.first];
    const Wish wish = WishOf(item, measures);
    track.is_used = true;
    track.size = std::max(track.size, across ? wish.width : wish.height);
    track.grows |= across ? wish.grows_wide : wish.grows_high;
    const bool along = (group.kind == Kind::Row) == across && group.kind != Kind::Grid;
    if (along) track.stretch = item.stretch;
  }
  for (std::size_t i = 0; i < shares.size(); ++i) tracks[i].stretch = shares[i];
  const std::int32_t spacing = SpacingOf(group, across, measures);
  for (const std::size_t part : wide) {
    const Span span = SpanOf(group, part, across);
    const Wish wish = WishOf(group.items[part], measures);
    if (LengthOf(tracks, span, spacing) == 0) tracks[span.first].is_used = true;
    Widen(tracks, span, (across ? wish.width : wish.height) - LengthOf(tracks, span, spacing));
  }
  return tracks;
}

// An empty track has no spacing of its own.
void Fill(Tracks& tracks, std::int32_t begin, std::int32_t length, std::int32_t spacing) {
  const Span all{0, tracks.size()};
  Widen(tracks, all, length - LengthOf(tracks, all, spacing), true);
  for (Track& track : tracks) {
    track.begin = begin;
    begin += track.size + (track.is_used ? spacing : 0);
  }
}

ui::Rectangle Within(const ui::Rectangle& room, const Item& item, const Measures& measures) {
  if (item.align == Item::Align::Fill) return room;
  const Wish wish = WishOf(item, measures);
  ui::Rectangle place = room;
  if (item.align == Item::Align::Center) {
    place.left += std::max(0, (room.right - room.left - wish.width) / 2);
    place.top += std::max(0, (room.bottom - room.top - wish.height) / 2);
    place.right = place.left + wish.width;
  }
  place.bottom = place.top + wish.height;
  return place;
}

void Place(const Item& item, const ui::Rectangle& room, const Measures& measures, Places& places);

void PlaceGroup(const Item& group, const ui::Rectangle& room, const Measures& measures,
                Places& places) {
  Tracks columns = TracksOf(group, true, measures);
  Tracks rows = TracksOf(group, false, measures);
  const std::int32_t across = SpacingOf(group, true, measures);
  const std::int32_t down = SpacingOf(group, false, measures);
  Fill(columns, room.left, room.right - room.left, across);
  Fill(rows, room.top, room.bottom - room.top, down);
  for (std::size_t part = 0; part < group.items.size(); ++part) {
    if (!TakesPlace(group.items[part], measures)) continue;
    const Span column = SpanOf(group, part, true);
    const Span row = SpanOf(group, part, false);
    const std::int32_t left = columns[column.first].begin;
    const std::int32_t top = rows[row.first].begin;
    Place(group.items[part],
          {left, top, left + LengthOf(columns, column, across), top + LengthOf(rows, row, down)},
          measures, places);
  }
}

void Place(const Item& item, const ui::Rectangle& room, const Measures& measures, Places& places) {
  if (item.kind == Kind::Space) return;
  if (item.kind != Kind::Control) return PlaceGroup(item, room, measures, places);
  const ui::Rectangle place = Within(room, item, measures);
  places[item.control] = place;
  if (item.items.empty()) return;
  const ui::Rectangle border = measures.BorderOf(item.control);
  Place(item.items.front(),
        {border.left, border.top, place.right - place.left - border.right,
         place.bottom - place.top - border.bottom},
        measures, places);
}

}  // namespace

Wish WishOf(const Item& item, const Measures& measures) {
  if (item.kind == Kind::Space)
    return {measures.Scaled(item.width), measures.Scaled(item.height), item.stretch > 0,
            item.stretch > 0};
  if (item.kind == Kind::Control) {
    Wish wish = measures.WishOf(item.control);
    if (item.items.empty()) return wish;
    const Wish content = WishOf(item.items.front(), measures);
    const ui::Rectangle border = measures.BorderOf(item.control);
    wish.width = std::max(wish.width, content.width + border.left + border.right);
    wish.height = std::max(wish.height, content.height + border.top + border.bottom);
    wish.grows_wide = true;
    wish.grows_high = content.grows_high;
    return wish;
  }
  const auto along = [&](bool across, std::int32_t& length, bool& grows) {
    const Tracks tracks = TracksOf(item, across, measures);
    length = LengthOf(tracks, {0, tracks.size()}, SpacingOf(item, across, measures));
    grows = std::ranges::any_of(tracks, [](const Track& track) {
      return track.is_used && (track.grows || track.stretch > 0);
    });
  };
  Wish wish;
  along(true, wish.width, wish.grows_wide);
  along(false, wish.height, wish.grows_high);
  return wish;
}

Places Arrange(const Item& item, const ui::Rectangle& room, const Measures& measures) {
  Places places;
  Place(item, room, measures, places);
  return places;
}

}  // namespace pactora::dialogs
