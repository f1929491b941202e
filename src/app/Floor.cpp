// Placeholder until the first screen of this floor lands.
