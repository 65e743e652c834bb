// What a database is opened for.
#pragma once

namespace pactora::store {

enum class OpenMode {
  Read,       // to read; writing raises StoreError::ReadOnly
  Any,        // to write, or to read where the file or others' triggers in it forbid writing
  Write,      // raises StoreError::ReadOnly at once where it is
  Snapshot,   // a copy of this moment, in memory: nobody is kept waiting while it is read
  Rehearsal,  // the same, to write into; the file stays byte for byte as it is
};

}  // namespace pactora::store
