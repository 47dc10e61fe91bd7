other beam
