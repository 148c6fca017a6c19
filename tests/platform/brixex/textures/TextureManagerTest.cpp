#include <gtest/gtest.h>

#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"
#include "support/Model.h"

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
  CKelTexture texture;
  EXPECT_TRUE(texture.AllocatePixelArray(4) && !texture.AllocatePixelArray(~0U) && !texture.GetPixelArray());
}

TEST(TextureManager, AlternatePathsStayInTheirFolder) {
  const TemporaryFolder folder;
  folder.Write("a.png", "x");
  folder.Write("sub/deep/b.png", "x");
  CKelTextureManager manager;
  manager.AddAlternatePath((folder.Path() / "sub").c_str());
  EXPECT_GT(manager.FindTextureFilenameUsingAlternatePaths("deep/b.png").GetLength(), 0);
  for (const char* outside : {"../a.png", "deep/../../a.png", "..\\a.png"})
    EXPECT_EQ(manager.FindTextureFilenameUsingAlternatePaths(outside).GetLength(), 0) << outside;
}

}  // namespace
