nastran beam.dat notify=no
