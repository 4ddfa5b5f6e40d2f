// A host without any function.
