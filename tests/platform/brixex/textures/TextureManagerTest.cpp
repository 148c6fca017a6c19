#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

namespace {

TEST(TextureManager, NumbersTexturesAndRefusesASecondRecord) {
  CKelTextureManager manager;
  EXPECT_EQ(manager.RegisterTexture(nullptr), -1);
  auto* texture = new CKelTexture;
  texture->SetFilename("a.png");
  EXPECT_EQ(manager.RegisterTexture(texture), 1);
  EXPECT_EQ(manager.RegisterTexture(new CKelTexture), 2);
  EXPECT_EQ(manager.GetTexture("a.png"), texture);
  EXPECT_EQ(manager.GetTexture("A.png"), nullptr);
  EXPECT_EQ(manager.GetTextureAt(2), nullptr);
  auto* record = new CKelTextureCoordinate;
  EXPECT_TRUE(manager.RegisterTextureCoordinate(record));
  EXPECT_FALSE(manager.RegisterTextureCoordinate(nullptr));
  CKelTextureCoordinate second;
  EXPECT_FALSE(manager.RegisterTextureCoordinate(&second)) << "the object has a texture";
}

}  // namespace
