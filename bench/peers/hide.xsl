<?xml version="1.0" encoding="UTF-8"?>
<!-- Hides the ledger lines of every note, as a stylesheet. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="xml" encoding="UTF-8"/>
  <xsl:template match="@*|node()">
    <xsl:copy><xsl:apply-templates select="@*|node()"/></xsl:copy>
  </xsl:template>
  <xsl:template match="note">
    <xsl:copy>
      <xsl:attribute name="print-leger">no</xsl:attribute>
      <xsl:apply-templates select="@*[name()!='print-leger']|node()"/>
    </xsl:copy>
  </xsl:template>
</xsl:stylesheet>
