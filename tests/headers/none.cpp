// A library wants a source.
