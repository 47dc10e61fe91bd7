nastran nastran.ini beam.nas "C:\a b\@model@" 100% it's
