nastran beam.dat notify=no "C:\a b\@model@" 100% it's
