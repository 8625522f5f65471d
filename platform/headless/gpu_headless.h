#pragma once

// What the headless platform's sources share.

// Forgets the recording, the handles and their states.
void gpu_reset();
