nastran nastran.ini beam.nas
