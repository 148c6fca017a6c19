#include "qelvrml/scene/CVRMLTextureState.h"

void CVRMLTextureState::Initialize() {
  TextureID = -1;
  WrapS = TextureWrapRepeat;
  WrapT = TextureWrapRepeat;
  TextureCoordinates = {};
  Center = {0.0F, 0.0F};
  Scale = {1.0F, 1.0F};
  Translation = {0.0F, 0.0F};
  Rotation = 0.0;
}

void CVRMLTextureState::Copy(const CVRMLTextureState& other) {
  TextureID = other.TextureID;
  WrapS = other.WrapS;
  WrapT = other.WrapT;
  Center = other.Center;
  Scale = other.Scale;
  Translation = other.Translation;
  Rotation = other.Rotation;
}
