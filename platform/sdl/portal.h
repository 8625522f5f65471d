#pragma once

// The desktop's settings, as its portal tells them to every program.

// Whether one of them asks for as little motion as can be; false where there is no portal, or none
// that answers at once. Takes at most half a second.
bool portal_wants_stillness();
