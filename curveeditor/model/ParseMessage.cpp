// SPDX-License-Identifier: MIT
#include <curveeditor/model/ParseMessage.h>

ParseMessage::~ParseMessage() = default;
