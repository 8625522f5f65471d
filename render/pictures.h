#pragma once

// The pictures of the game as textures. Every texture is clamped at its edges.

#include "base/str.h"
#include "base/types.h"
#include "platform/image.h"

// The pictures. The card shapes stand in card order and the families in the order of
// `machine_kind`, so that both are found by adding to the first one.
enum texture_slot : u8 {
    texture_circle = 0,  // card shape a; states and the colour dots too
    texture_triangle,    // arrow heads too
    texture_square,
    texture_pentagon,
    texture_hexagon,
    texture_star,
    texture_white,  // every plain fill
    texture_eye,    // the rule letter T
    texture_stack,
    texture_similarity,  // the rule sign ~
    texture_gradient1,   // the back of the deck
    texture_gradient2,
    texture_gradient3,   // the face of a button
    texture_player,      // stones and seats
    texture_next_turn,   // the end-of-turn button
    texture_self_arrow,  // a transition from a state to itself
    texture_state_machine,
    texture_pushdown_machine,
    texture_turing_machine,
    texture_slot_count,
};

struct image_scratch_record {
    u64 size;    // bytes
    void* data;  // in the persistent arena; used only while `renderer_init` runs
};

struct texture_set_record {
    image_scratch_record image_scratch;
    u32 textures[texture_slot_count];
};

extern texture_set_record texture_set;

// Loads every picture as a texture that is smooth at every size, a white one where it cannot be
// read; once, at the start of `renderer_init`.
void pictures_load();

// A new texture with the picture's pixels, or one to draw into when the picture has none.
// The filters are of `texture_filter`; a trilinear minification brings mipmaps.
u32 texture_make(const image& picture, u32 minification, u32 magnification);
