#pragma once

#include <memory>
#include <new>

#include "qelvrml/parser/CVRMLParser.h"

class CVRMLDictionarySeparator;

namespace qelvrml {

/// Whether nodes of the current scope are recorded into the scope's entry. They aren't while the body of a recorded
/// instance is read in it.
bool IsRecording(const CVRMLParser& parser);

/// Records an entry under the DEF name at hand, if one is called for; `fill` copies the values into it. The entry, or
/// null: it belongs to the dictionary.
template <class Entry, class Fill>
Entry* Record(CVRMLParser& parser, Fill fill) {
  if (!parser.GetDefiningObjects()) return nullptr;
  std::unique_ptr<Entry> entry(new (std::nothrow) Entry);
  if (!entry) return nullptr;
  entry->SetName(parser.GetEntityName());
  fill(*entry);
  Entry* recorded = entry.get();
  return parser.AddDictionaryObject(entry.release()) ? recorded : nullptr;
}

}  // namespace qelvrml
