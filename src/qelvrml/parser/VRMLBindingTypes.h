#pragma once

/// How material or normal values are spread over a shape. The order is that of the keywords.
enum VRMLBindingTypes {
  VRMLBindingDefault = 0,  ///< no binding was given
  VRMLBindingOverall = 1,  ///< one value for the whole
  VRMLBindingPerPart = 2,  ///< one for each part of a solid or each line
  VRMLBindingPerPartIndexed = 3,
  VRMLBindingPerFace = 4,
  VRMLBindingPerFaceIndexed = 5,  ///< through the material indices
  VRMLBindingPerVertex = 6,
  VRMLBindingPerVertexIndexed = 7,  ///< through the material indices
};
