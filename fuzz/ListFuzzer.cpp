// Changes a list, a map or a list with an index as the bytes say, and a standard list in the same way.
//
//   first byte   the class, and whether it holds bare words or values of its own
//   the rest     operations with their arguments

#include <algorithm>
#include <array>
#include <iterator>
#include <list>
#include <memory>
#include <optional>

#include "Support.h"
#include "qelvrml/foundation/CBasicListIterator.h"
#include "qelvrml/foundation/CBasicMap.h"
#include "qelvrml/platform/brixex/NameIndexedList.h"

namespace {

constexpr std::array<int, 8> Numbers = {0, 1, 2, 3, 4, 5, 6, 7};

int NumberAt(const void* word) { return *static_cast<const int*>(word); }
void* WordOf(std::size_t place) { return const_cast<int*>(&Numbers[place]); }

// Two numbers share a key, and the last two have none.
std::optional<std::uint32_t> KeyOf(void* word) {
  const int number = NumberAt(word);
  return number > 5 ? std::nullopt : std::optional<std::uint32_t>(number / 2);
}

struct Entry {
  int Number;
  std::optional<int> Key;  ///< of a map
  unsigned Age = 0;        ///< counts the keys
};
using Entries = std::list<Entry>;

/// A place of an iterator of the list, and where it has to be.
struct Walk {
  explicit Walk(CBasicList& list) : Real(&list) {}
  CBasicListIterator Real;
  Entries::iterator Place;
};

class Lists {
public:
  Lists(CBasicList& list, bool values) : List(list), Values(values), Walks{Walk(list), Walk(list)} {
    if (values) list.SetIntegerElements();
    SendToFirst();
  }
  Lists(const Lists&) = delete;
  Lists& operator=(const Lists&) = delete;
  ~Lists() { Clear(); }

  void Do(Choices& choices);
  void Compare();

protected:
  void Add(Choices& choices);
  void Remove(Choices& choices);
  void Step(Choices& choices);
  void Key(Choices& choices);
  void Clear();

  void SendToFirst() {
    for (Walk& walk : Walks) walk.Place = Expected.begin();
  }
  Entries::iterator Find(int number) {
    return std::find_if(Expected.begin(), Expected.end(), [=](const Entry& entry) { return entry.Number == number; });
  }
  Entries::iterator Youngest(int key);
  bool Erase(Entries::iterator place) {
    if (place == Expected.end()) return false;
    Expected.erase(place);
    SendToFirst();
    return true;
  }

  CBasicList& List;
  bool Values;
  Entries Expected;
  std::array<Walk, 2> Walks;
  unsigned Keys = 0;
};

Entries::iterator Lists::Youngest(int key) {
  auto youngest = Expected.end();
  for (auto entry = Expected.begin(); entry != Expected.end(); ++entry) {
    if (entry->Key == key && (youngest == Expected.end() || entry->Age > youngest->Age)) youngest = entry;
  }
  return youngest;
}

void Lists::Clear() {
  const bool empty = Expected.empty();
  const bool removed = Values ? List.RemoveAllValues() : List.RemoveAll();
  Require(removed != empty, "a list that isn't emptied");
  Expected.clear();
  SendToFirst();
}

void Lists::Add(Choices& choices) {
  const std::size_t place = choices.Below(Numbers.size());
  void* word = WordOf(place);
  const Entry entry{Numbers[place], std::nullopt};
  Walk& walk = Walks[choices.Below(Walks.size())];
  switch (choices.Below(4)) {
    case 0:
      Require(Values ? List.AddTailValue(word) : List.AddTail(word), "nothing added behind");
      Expected.push_back(entry);
      break;
    case 1:
      Require(Values ? walk.Real.AddHeadValue(word) : walk.Real.AddHead(word), "nothing added in front");
      Expected.push_front(entry);
      break;
    case 2:
      Require(List.AddTailAny(word), "nothing added of any kind");
      Expected.push_back(entry);
      break;
    default:
      if (Values) return;
      Require(walk.Real.InsertAfterCurrent(word) != Expected.empty(), "nothing inserted");
      if (Expected.empty()) return;
      if (walk.Place == Expected.end()) walk.Place = Expected.begin();
      Expected.insert(std::next(walk.Place), entry);
      break;
  }
}

void Lists::Remove(Choices& choices) {
  const std::size_t place = choices.Below(Numbers.size());
  void* word = WordOf(place);
  Walk& walk = Walks[choices.Below(Walks.size())];
  switch (choices.Below(5)) {
    case 0:
      Require((Values ? List.RemoveValue(word) : List.Remove(word)) == Erase(Find(Numbers[place])), "removal");
      break;
    case 1:
      Require((Values ? walk.Real.RemoveValue(word) : walk.Real.Remove(word)) == Erase(Find(Numbers[place])),
              "removal through an iterator");
      break;
    case 2: {
      void* head = List.RemoveHead();
      Require((head != nullptr) != Expected.empty(), "no head");
      if (!head) return;
      Require(NumberAt(head) == Expected.front().Number, "another head");
      if (Values) delete static_cast<int*>(head);
      Erase(Expected.begin());
      break;
    }
    case 3: Require(List.RemoveAny(word) == Erase(Find(Numbers[place])), "removal of any kind"); break;
    default: Clear(); break;
  }
}

void Lists::Step(Choices& choices) {
  Walk& walk = Walks[choices.Below(Walks.size())];
  Walk& other = &walk == &Walks[0] ? Walks[1] : Walks[0];
  switch (choices.Below(6)) {
    case 0:
      walk.Real.Next();
      walk.Place = walk.Place == Expected.end() ? Expected.begin() : std::next(walk.Place);
      break;
    case 1:
      walk.Real.Previous();
      if (walk.Place == Expected.end()) {
        walk.Place = Expected.empty() ? Expected.end() : std::prev(Expected.end());
      } else {
        walk.Place = walk.Place == Expected.begin() ? Expected.end() : std::prev(walk.Place);
      }
      break;
    case 2: {
      const int index = static_cast<int>(choices.Below(16)) - 1;
      const bool good = index >= 0 && index < static_cast<int>(Expected.size());
      Require((walk.Real.GetAt(index) != nullptr) == good, "an element at a bad place");
      if (good) walk.Place = std::next(Expected.begin(), index);
      break;
    }
    case 3:
      Require(walk.Real.GoToLast() != Expected.empty(), "no last element");
      walk.Place = Expected.empty() ? Expected.end() : std::prev(Expected.end());
      break;
    case 4:
      walk.Real = other.Real;
      walk.Place = other.Place;
      break;
    default:
      walk.Real.SetList(nullptr);
      Require(!walk.Real.GetData() && !walk.Real.RemoveAll(), "an iterator without a list that has data");
      walk.Real.SetList(&List);
      walk.Place = Expected.begin();
      break;
  }
}

// What only lists with keys have.
void Lists::Key(Choices& choices) {
  const int key = static_cast<int>(choices.Below(4)) - 1;
  const std::size_t place = choices.Below(Numbers.size());
  if (auto* map = dynamic_cast<CBasicMap*>(&List)) {
    switch (choices.Below(3)) {
      case 0:
        Require(map->AddHash(key, WordOf(place)), "no key added");
        Expected.push_back({Numbers[place], key, ++Keys});
        break;
      case 1: Require(map->RemoveHash(key) == Erase(Youngest(key)), "removal by a key"); break;
      default: {
        const void* found = map->FindHash(key);
        const auto youngest = Youngest(key);
        Require((found != nullptr) == (youngest != Expected.end()), "a key that is lost, or should be");
        Require(!found || NumberAt(found) == youngest->Number, "another word of a key");
      }
    }
  } else if (auto* named = dynamic_cast<qelvrml::NameIndexedList*>(&List)) {
    const auto hasKey = [key](const Entry& entry) {
      return KeyOf(WordOf(static_cast<std::size_t>(entry.Number))) == static_cast<std::uint32_t>(key);
    };
    const void* found = named->FindKey(static_cast<std::uint32_t>(key));
    const auto first = std::find_if(Expected.begin(), Expected.end(), hasKey);
    Require((found != nullptr) == (first != Expected.end()), "a name that is lost, or should be");
    Require(!found || NumberAt(found) == first->Number, "another word of a name");
  }
}

void Lists::Do(Choices& choices) {
  switch (choices.Below(4)) {
    case 0: Add(choices); break;
    case 1: Remove(choices); break;
    case 2: Step(choices); break;
    default: Key(choices); break;
  }
}

void Lists::Compare() {
  Require(List.GetCount() == static_cast<int>(Expected.size()), "another count");
  for (Walk& walk : Walks) {
    const void* data = walk.Real.GetData();
    Require((data != nullptr) == (walk.Place != Expected.end()), "an iterator that is at its end, or should be");
    Require(!data || NumberAt(data) == walk.Place->Number, "an iterator at another place");
  }
  List.GoToFirst();
  for (const Entry& entry : Expected) {
    const CBasicListElement* element = List.GetCurrentElement();
    Require(element && NumberAt(element->Data) == entry.Number, "other elements from the front");
    List.GoToNext();
  }
  Require(!List.GetCurrentElement(), "elements behind the last one");
  List.SetCurrentElement(List.GetTailElement());
  for (const Entry& entry : Entries(Expected.rbegin(), Expected.rend())) {
    const CBasicListElement* element = List.GetCurrentElement();
    Require(element && NumberAt(element->Data) == entry.Number, "other elements from the back");
    List.GoToPrevious();
  }
  Require(!List.GetCurrentElement(), "elements in front of the first one");
  for (const int number : Numbers) {
    const bool found = List.FindElement(WordOf(static_cast<std::size_t>(number))) != nullptr;
    Require(found == (Find(number) != Expected.end()), "an element that is lost, or should be");
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  std::unique_ptr<CBasicList> list;
  const std::size_t kind = choices.Below(4);
  switch (kind) {
    case 0: list = std::make_unique<CBasicList>(); break;
    case 1: list = std::make_unique<CKelList>(); break;
    case 2: list = std::make_unique<CBasicMap>(); break;
    default: list = std::make_unique<qelvrml::NameIndexedList>(KeyOf); break;
  }
  if (auto* map = dynamic_cast<CBasicMap*>(list.get())) map->SetBucketCount(2);
  Lists lists(*list, choices.Below(2) == 1 && kind != 3);
  while (choices.Left()) {
    lists.Do(choices);
    lists.Compare();
  }
  return 0;
}
