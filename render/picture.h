#pragma once

// Pictures as textures. Every texture is clamped at its edges.

#include "base/str.h"
#include "base/types.h"
#include "platform/image.h"

// A new texture with the picture's pixels, or one to draw into when the picture has none.
// The filters are of `texture_filter`; a trilinear minification brings mipmaps.
u32 texture_make(const image& picture, u32 minification, u32 magnification);

// The picture at `path` as a texture that is smooth at every size. A picture that cannot be read
// becomes a white one.
u32 picture_load(str path);
