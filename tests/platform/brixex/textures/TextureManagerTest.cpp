#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

namespace {

TEST(TextureManager, WhatItRefusesStaysWithItsOwner) {
  CKelTextureManager manager;
  EXPECT_EQ(manager.RegisterTexture(nullptr), -1);
  EXPECT_EQ(manager.RegisterTexture(new CKelTexture), 1);
  EXPECT_EQ(manager.RegisterTexture(new CKelTexture), 2);
  EXPECT_EQ(manager.GetTexture(""), nullptr) << "textures of pixels have no name";
  EXPECT_EQ(manager.GetTextureAt(2), nullptr);
  EXPECT_TRUE(manager.RegisterTextureCoordinate(new CKelTextureCoordinate));
  EXPECT_FALSE(manager.RegisterTextureCoordinate(nullptr));
  CKelTextureCoordinate second;
  EXPECT_FALSE(manager.RegisterTextureCoordinate(&second)) << "the object has a texture";
}

}  // namespace
