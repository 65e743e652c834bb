#include "automation/dataset/DatasetReader.h"

#include <fmt/format.h>

#include <algorithm>

#include "automation/dataset/dataset_profile.h"
#include "automation/dataset/values.h"
#include "platform/Error.h"

namespace pactora::dataset {

formats::Place DatasetReader::PathOf(std::size_t frames) const {
  formats::Place place(Source());
  for (std::size_t i = 0; i < frames; ++i)
    place = frames_[i].kind == Kind::Rows ? place.Element(frames_[i].index)
            : frames_[i].key.empty()      ? place
                                          : place.Key(frames_[i].key);
  return place;
}

formats::Place DatasetReader::RowPlace() const {
  std::size_t frames = frames_.size();
  while (frames > 0 && frames_[frames - 1].kind != Kind::Rows) --frames;
  return PathOf(frames);
}

void DatasetReader::FailExpected() const {
  const bool list = !frames_.empty() && frames_.back().child_table.has_value();
  Here().Fail(list ? "eine Liste von Zeilen wird erwartet" : "ein Objekt wird erwartet");
}

bool DatasetReader::TakesWholeValue() const {
  if (frames_.empty()) return false;
  const Frame& frame = frames_.back();
  return (frame.kind == Kind::Root && frame.key != key::kTables) ||
         (frame.kind == Kind::Row && !frame.child_table);
}

void DatasetReader::Enter(Kind kind, store::TableId table) {
  Frame frame{kind, table, 0, {}, {}, {}, {}, false, std::nullopt, std::nullopt};
  if (kind == Kind::Row) frame.seen_fields.resize(catalog_.tables[table].fields.size());
  if (kind == Kind::Row || kind == Kind::Tables) frame.seen_tables.resize(catalog_.tables.size());
  frames_.push_back(std::move(frame));
  if (kind == Kind::Row) RowBegins(table);
}

void DatasetReader::OnStart(formats::Json container) {
  if (value_) return value_->Start(std::move(container));
  if (TakesWholeValue()) {
    value_.emplace(Here());
    return value_->Start(std::move(container));
  }
  if (frames_.empty()) {
    if (!container.is_object()) FailExpected();
    return Enter(Kind::Root, 0);
  }
  const Frame& frame = frames_.back();
  if (frame.child_table) {
    if (!container.is_array()) FailExpected();
    if (frame.kind == Kind::Row) ChildrenBegin();
    return Enter(Kind::Rows, *frame.child_table);
  }
  if (!container.is_object()) FailExpected();
  if (frame.kind == Kind::Rows) return Enter(Kind::Row, frame.table);
  Enter(Kind::Tables, 0);
}

void DatasetReader::OnScalar(formats::Json value) {
  if (value_) return value_->Scalar(std::move(value));
  if (!TakesWholeValue()) FailExpected();
  Take(std::move(value));
}

void DatasetReader::OnEnd() {
  if (value_) {
    value_->End();
    if (!value_->Complete()) return;
    formats::Json value = value_->Take();
    value_.reset();
    return Take(std::move(value));
  }
  if (frames_.back().kind == Kind::Row) RowEnds();
  frames_.pop_back();
  if (!frames_.empty() && frames_.back().kind == Kind::Rows) ++frames_.back().index;
}

void DatasetReader::Take(formats::Json value) {
  const Frame& frame = frames_.back();
  if (frame.kind == Kind::Root) return ProfileMember(frame.key, std::move(value));
  // Forming the place costs more than reading the value, so it is formed for a
  // fault alone.
  static const formats::Place nowhere("");
  const auto read = [&](const auto& at) {
    try {
      return at(nowhere);
    } catch (const platform::Error&) {
      return at(Here());
    }
  };
  if (!frame.field)
    return RowOid(read([&](const formats::Place& place) { return ReadOid(value, place); }));
  const schema::Field& field = catalog_.tables[frame.table].fields[*frame.field];
  RowCell(*frame.field,
          read([&](const formats::Place& place) { return ReadField(field, value, place); }));
}

void DatasetReader::OnKey(std::string key) {
  if (value_) return value_->Key(std::move(key));
  Frame& frame = frames_.back();
  frame.key = std::move(key);
  switch (frame.kind) {
    case Kind::Root:
      return RootKey(frame);
    case Kind::Tables:
      return TableKey(frame);
    default:
      return RowKey(frame);
  }
}

namespace {

constexpr const char* kTwice = "steht doppelt da";

}  // namespace

void DatasetReader::RootKey(Frame& frame) {
  if (frame.key != key::kTables && !IsProfileKey(frame.key))
    formats::Place(Source()).FailUnknownKey(frame.key);
  if (std::find(frame.seen.begin(), frame.seen.end(), frame.key) != frame.seen.end())
    Here().Fail(kTwice);
  frame.seen.push_back(frame.key);
}

void DatasetReader::TableKey(Frame& frame) {
  frame.child_table = catalog_.FindTable(frame.key);
  if (!frame.child_table) Here().Fail("diese Tabelle gibt es nicht");
  if (const auto parent = catalog_.tables[*frame.child_table].parent)
    Here().Fail(
        fmt::format("diese Tabelle steht in den Zeilen von {}", catalog_.tables[*parent].name));
  if (frame.seen_tables[*frame.child_table]) Here().Fail(kTwice);
  frame.seen_tables[*frame.child_table] = true;
}

void DatasetReader::RowKey(Frame& frame) {
  frame.field.reset();
  frame.child_table.reset();
  if (frame.key == key::kOid) {
    if (frame.seen_oid) Here().Fail(kTwice);
    frame.seen_oid = true;
    return;
  }
  const schema::Table& table = catalog_.tables[frame.table];
  frame.field = table.FindField(frame.key);
  if (frame.field) {
    if (frame.seen_fields[*frame.field]) Here().Fail(kTwice);
    frame.seen_fields[*frame.field] = true;
    return;
  }
  const auto child = catalog_.FindTable(frame.key);
  if (!child ||
      std::find(table.children.begin(), table.children.end(), *child) == table.children.end())
    Here().Fail(fmt::format("weder ein Feld noch eine Untertabelle von {}", table.name));
  if (frame.seen_tables[*child]) Here().Fail(kTwice);
  frame.seen_tables[*child] = true;
  frame.child_table = child;
}

}  // namespace pactora::dataset
