// Reads a dataset as it streams by: checks every key and value against the
// catalogue and hands on rows, field by field, without holding the file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "automation/formats/json.h"
#include "host/Value.h"
#include "schema/Catalog.h"
#include "store/RecordStore.h"

namespace pactora::dataset {

// Subclasses receive what is read. For each row RowBegins is called, then its cells
// and its Oid in the order of the file, ChildrenBegin before each list of child rows,
// and RowEnds. Cells may also follow the children.
// Read raises DoorError::BadInput at the first fault.
class DatasetReader : public formats::JsonEvents {
 public:
  // The catalogue must outlive the reader.
  DatasetReader(const schema::Catalog& catalog, std::string source)
      : formats::JsonEvents(std::move(source)), catalog_(catalog) {}

 protected:
  virtual void ProfileMember(const std::string& key, formats::Json value) = 0;
  virtual void RowBegins(store::TableId table) = 0;
  virtual void RowOid(store::Oid oid) = 0;
  virtual void RowCell(std::size_t field, host::Value value) = 0;  // of the field's type
  virtual void ChildrenBegin() = 0;
  virtual void RowEnds() = 0;

  // The row that is being read, or a table's list between two rows.
  formats::Place RowPlace() const;
  const schema::Catalog& Catalog() const { return catalog_; }

 private:
  enum class Kind { Root, Tables, Rows, Row };
  struct Frame {
    Kind kind;
    store::TableId table = 0;                   // Rows, Row
    std::size_t index = 0;                      // Rows: the element being read
    std::string key;                            // objects: the member being read
    std::vector<std::string> seen;              // Root: members read
    std::vector<bool> seen_fields;              // Row
    std::vector<bool> seen_tables;              // Row, Tables
    bool seen_oid = false;                      // Row
    std::optional<std::size_t> field;           // Row: the member is a field,
    std::optional<store::TableId> child_table;  // or with Tables a table
  };

  void OnScalar(formats::Json value) final;
  void OnKey(std::string key) final;
  void OnStart(formats::Json container) final;
  void OnEnd() final;

  void RootKey(Frame& frame);
  void TableKey(Frame& frame);
  void RowKey(Frame& frame);
  void Enter(Kind kind, store::TableId table);
  void Take(formats::Json value);  // the whole value of a member
  // Whether the next value is read as a whole before it is checked.
  bool TakesWholeValue() const;
  // The kind of value that must come next where another one comes: a list or an object.
  [[noreturn]] void FailExpected() const;
  formats::Place PathOf(std::size_t frames) const;
  formats::Place Here() const { return PathOf(frames_.size()); }

  const schema::Catalog& catalog_;
  std::vector<Frame> frames_;
  std::optional<formats::JsonBuilder> value_;  // the whole value being read
};

}  // namespace pactora::dataset
