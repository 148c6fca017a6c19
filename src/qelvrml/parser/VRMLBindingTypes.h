#pragma once

/// How material or normal values are spread over a shape. The order is that of the keywords.
///
/// The material that an object gets is CVRMLSeparator::AddObject's. Solids know parts alone, and of these only a
/// cylinder has any; of a face set and a line set, what isn't told here has the first material.
enum VRMLBindingTypes {
  VRMLBindingDefault = 0,           ///< no binding was given; as VRMLBindingOverall
  VRMLBindingOverall = 1,           ///< one value for the whole
  VRMLBindingPerPart = 2,           ///< one for the side of a cylinder and each of its disks: bottom, then top
  VRMLBindingPerPartIndexed = 3,    ///< the same; each face of a set is an object of its own
  VRMLBindingPerFace = 4,           ///< one for each face or line of a set
  VRMLBindingPerFaceIndexed = 5,    ///< the same, through the material indices
  VRMLBindingPerVertex = 6,         ///< for each face or line, the mean of its vertices' diffuse colours
  VRMLBindingPerVertexIndexed = 7,  ///< the same, through the material indices
};
