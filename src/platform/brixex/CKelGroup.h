#pragma once

#include "foundation/Export.h"
#include "platform/brix/brixWorld.h"

/// A group of a model.
class QELVRML_EXPORT CKelGroup : public brixWorld {};
