// Damage on purpose: rich scenes cut off and mixed up, and deep nesting on a small stack.

#include <gtest/gtest.h>
#include <pthread.h>

#include <random>
#include <utility>

#include "support/Model.h"
#include "support/Tool.h"

namespace {

/// Scenes of both versions that hold a bit of everything.
std::vector<std::string> RichScenes() {
  return {ReadWholeFile(QELVRML_TEST_SCENES "/rich-1.0.wrl"), ReadWholeFile(QELVRML_TEST_SCENES "/rich-2.0.wrl")};
}

TEST(Robustness, EveryTruncationOfARichScene) {
  for (const std::string& scene : RichScenes()) {
    for (std::size_t length = 0; length < scene.size(); ++length) {
      SCOPED_TRACE(scene.substr(0, length));
      LoadBytes(scene.substr(0, length));
    }
  }
}

// Words of the scene in any order and number, from a fixed seed.
TEST(Robustness, WordsInAnyOrder) {
  std::istringstream stream(RichScenes()[0] + RichScenes()[1]);
  const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    std::string scene = round % 2 == 0 ? "#VRML V2.0 utf8\n" : "#VRML V1.0 ascii\n";
    for (int i = 0; i < 400; ++i) scene += words[random() % words.size()] + " ";
    LoadBytes(scene);
  }
}

// Every byte of the scene replaced once by one that means something to the reader.
TEST(Robustness, BytesThatChange) {
  const std::string meaningful("{}[]()\"#\\-9 \0\n\xFF", 15);
  for (std::string scene : RichScenes()) {
    for (std::size_t i = 0; i < scene.size(); ++i) {
      SCOPED_TRACE(i);
      const char kept = std::exchange(scene[i], meaningful[i % meaningful.size()]);
      LoadBytes(scene);
      scene[i] = kept;
    }
  }
}

void OnSmallStack(void* (*work)(void*), void* argument) {
  constexpr std::size_t StackBytes = 1U << 20U;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, StackBytes);
  pthread_t thread{};
  ASSERT_EQ(pthread_create(&thread, &attributes, work, argument), 0);
  pthread_join(thread, nullptr);
}

TEST(Robustness, DeepNestingFitsOnASmallStack) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "frames are larger under the sanitizer";
#endif
  constexpr int Depth = 700;
  std::string closing(Depth, '}');
  const auto repeated = [](const std::string& text) {
    std::string all = "#VRML V2.0 utf8\n";
    for (int i = 0; i < Depth; ++i) all += text;
    return all;
  };
  for (const std::string text :
       {"Transform { children ", "Shape { geometry DEF a ", "Collision { children [ ", "[ ", "LOD { level [ ",
        "Group { children DEF x Transform { children DEF y ", "IndexedFaceSet { coord ", "Appearance { material ",
        "Switch { whichChoice 0 choice [ ", "PROTO P [] { Shape { geometry Group { children P { } } } } P { } "}) {
    std::string scene = repeated(text) + "Box {}" + closing;
    OnSmallStack(
        [](void* bytes) -> void* {
          LoadBytes(*static_cast<std::string*>(bytes));
          return nullptr;
        },
        &scene);
  }
}

}  // namespace
