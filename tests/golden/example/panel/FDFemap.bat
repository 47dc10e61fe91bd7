nastran panel.dat notify=no memory=8gb
