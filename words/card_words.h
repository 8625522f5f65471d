#pragma once

// Cards, goals and what they are made of, in plain words. What is returned lives in the frame
// arena.

#include "base/text_builder.h"
#include "maps/model.h"

// "red circle 1".
str card_name(card c);

// What is said of cards: of one "is red", "is a circle", "has the number 1", or "is not red"; of
// two "are both red"; of some on a tape "are red", "have the shape circle".
enum property_manner : u8 { manner_is = 0, manner_is_not, manner_are_both, manner_are };

void property_put(text_builder& text, property_manner manner, card_property property);

// What has to be so on the tape. A measure or comparison that does not exist says that nobody can
// meet the goal.
str goal_sentence(const goal& g);
